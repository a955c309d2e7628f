// The four game pieces: the players of the side at bat who are on the field.
#pragma once

#include <filesystem>
#include <string>

#include "game/board.h"

namespace dtb {

// The file of a player's photo: the folder of the photos, the name unchanged, ".jpg".
[[nodiscard]] std::filesystem::path PhotoFile(const BoardState& state, const std::string& name);

// Puts a player on the first free piece: his photo, or a name plate where there is none. With no
// piece free nothing changes. While the board keeps the bases, a player who has a piece stays on
// it, a piece whose store still keeps a photo is free as well, and with no piece free he takes that
// of somebody who is neither at bat nor on a base.
void PlaceBatterPhoto(Board& board, const std::string& name);

// The piece is free for the next player, with or without a photo; only its tag stays.
void EmptyPiece(GamePiece& piece);

// Empties all pieces but the first of each name, since a runner on the bases has one.
void LeaveOnePieceEach(BoardState& state);

// Empties box and plate of every piece whose tag is this name. The tags stay.
void TakeOffBoard(Board& board, const std::string& name);

// Double click on a piece, 0 to 3: the piece is free again; its store keeps the photo.
void FreePiece(Board& board, int piece);

// Double click on a name plate: the same, but the tag stays.
void ClearPlate(Board& board, int piece);

// Empties all pieces and puts them back on their start places; the tags stay. Nobody is on base
// then. The totals of the line score are brought up to date.
void ResetGamePieces(Board& board);

// Puts the middle of a piece at a place of the scene, in layout units. A strip of the
// piece stays inside the scene, so that it cannot be lost.
void MovePiece(Board& board, int piece, double middleX, double middleY);

// The buttons "BIG" and "SM": all pieces become 1.1 or 0.9 times as large. SM also puts all four on
// the ground line if one of them stands below it. Sizes stay between 12 units of width and the
// height of the scene, beyond which a piece could not be used.
void EnlargePieces(Board& board);
void ShrinkPieces(Board& board);

// Start places of all pieces, worked out from their size.
void PlacePiecesAtStart(BoardState& state);
// A piece, 0 to 3, stands on its start place.
[[nodiscard]] bool StandsAtStart(const BoardState& state, int piece);

}  // namespace dtb
