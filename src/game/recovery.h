// The game in progress, kept for the case that the program ends without the person's will.
#pragma once

#include <string>
#include <string_view>

#include "aids/aids_state.h"
#include "game/memento.h"

namespace dtb {

// The caption of the menu entry that the operation below belongs to.
inline constexpr const char* kTakeUpSetAside = "Resume a game set aside...";

// All that stands on the board, the sheet and in the log, with a checksum, as bytes for a file.
[[nodiscard]] std::string TableText(const Board& board, const AidsState& aids);

// What such bytes tell.
struct KeptTable {
  GameMemento game;
  AidsState aids;
};

// Throws DamagedText for bytes that are damaged or from another program. Nothing changes yet.
[[nodiscard]] KeptTable ReadTable(std::string_view bytes, const Board& board, const Aids& aids);

// Puts it back in silence; no step can be taken back then.
void TakeUp(const KeptTable& kept, Board& board, Aids& aids);

// "Boston 1960 at Chicago 1960": how the name of the file ends in which the game is set aside.
[[nodiscard]] std::string AsideTitle(const BoardState& state);

// At start: where a game was kept, asks whether to go on with it, and tells if it is saved already.
// A game that is not wanted, and a file that cannot be understood, are moved aside and kept; the
// person learns where, and how the game comes back.
void OfferRecovery(Board& board, Aids& aids, RecoveryStore& store);

// "Resume a game set aside...": lets the person choose one of these games and puts it on the
// board. A game that is on the board by then is set aside itself, if the person agrees. A file that
// cannot be understood is told and changes nothing.
void TakeUpSetAside(Board& board, Aids& aids, RecoveryStore& store);

}  // namespace dtb
