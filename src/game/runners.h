// Runners on the board: stolen bases and the base tracker.
#pragma once

#include "game/board.h"

namespace dtb {

// A click on a game piece, 0 to 3: notes the runner; with Ctrl held his stolen base is
// recorded. While the board asks whether it put out the right runner, he is out instead. A piece
// without a name does nothing.
void ClickPiece(Board& board, int piece);

// The same without a click: the stolen base of the player on a piece, 0 to 3. Where the board keeps
// the bases he goes one base on; on no base, or with the next one taken, it is refused in a notice.
void RecordStolenBase(Board& board, int piece);

// Records a stolen base for the player on the piece StolenBasePiece, in the table of the side at
// bat.
void StolenBase(Board& board);

// Tells how a stolen base is recorded.
void ExplainStolenBase(Board& board);

// A click on a base of the tracker, 0 to 2 for first to third: occupied becomes empty and the other
// way round. Nothing reads it: it is the player's memo. Where the board keeps the bases nothing
// happens.
void ToggleBase(Board& board, int base);

}  // namespace dtb
