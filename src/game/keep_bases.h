// The option "KEEP THE BASES".
#pragma once

#include "game/board.h"

namespace dtb {

// Reads the choice from the settings; at first the option is off.
void ReadKeepBases(Board& board);

// The check box was clicked: the choice holds at once and for good. Reports settings that cannot be
// written; then it holds until the program ends. In the middle of a half-inning the board does not
// know who is where and asks for it in a notice; it forgets the bases when it is turned off.
void KeepBasesClicked(Board& board);

// The option is to be offered: both teams are loaded for the first time that the program is used.
[[nodiscard]] bool OffersToKeepBases(Board& board);

// The person has seen the offer: it does not come again. `turnOn`: he took it.
void AnswerOffer(Board& board, bool turnOn);

}  // namespace dtb
