// Asks before something is recorded for a player who does not bat.
#pragma once

#include "game/board.h"
#include "game/outcome.h"

namespace dtb {

// True when what is recorded next belongs to the batter: EDIT of the side at bat is off, the batter
// was chosen since the last third out, and he stands in the first nine of that side. Where it does
// not, one box says so and offers what is most likely meant; it is done at once if the person takes
// it. A run that goes into the line of the side in the field is asked about once a game. False: the
// person wants to go back, and nothing has changed.
//
// Where a team, a pitcher or the first batter is missing, it leaves that to the gate.
[[nodiscard]] bool BatterIsSure(Board& board, bool isRun);

}  // namespace dtb
