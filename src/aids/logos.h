// The logos of the two teams.
#pragma once

#include "game/board.h"

namespace dtb {

// Loads the logo of the side's team, on the board and on the sheet. A team without one gets the
// side's default logo on the board; the sheet keeps what it showed.
void LoadLogo(Board& board, Side side);

}  // namespace dtb
