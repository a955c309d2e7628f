// The pitcher who is charged with what the side at bat does.
#pragma once

#include "game/board.h"

namespace dtb {

// Raises a column of the current pitcher of the side in the field. False, and nothing done, when
// nobody is at bat or the pitcher has no row.
bool ChargePitcher(Board& board, int column);

}  // namespace dtb
