// The logos of the two teams.
#pragma once

#include "game/board.h"

namespace dtb {

// The logos with which the board starts, before any team is there.
void ShowDefaultLogos(Board& board);

// Loads the logo of the side's team, on the board and on the sheet. A team without one gets the
// side's default logo on the board; the sheet keeps what it showed.
void LoadLogo(Board& board, Side side);

// A click on a logo: the person picks another one, on the board and on the sheet, for this run. A
// file that is no picture leaves the logo as it is.
void ChooseLogo(Board& board, Side side);

}  // namespace dtb
