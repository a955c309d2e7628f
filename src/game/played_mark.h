// The mark of the players who take part in the game.
#pragma once

#include "game/board.h"

namespace dtb {

// Marks the player on game piece 1 as `Played` (column 18 of his row). The visitors' table is
// searched first, whichever side is at bat; a nameless row is found but never marked.
void ChangeOfState(Board& board);

}  // namespace dtb
