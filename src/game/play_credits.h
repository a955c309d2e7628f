// Who gets what for a run of a play.
#pragma once

#include <cstddef>

#include "game/board.h"

namespace dtb {

// The side whose batter it is: by his line on the sheet, since a half-inning may be played in the
// other order.
[[nodiscard]] Side SideOfBatter(Board& board, const Play& play);

// The batter's RBI and the earned run of the pitcher charged with the runner, as far as the move
// has them: `by` is 1 to count them, -1 to take them back. A player without a line gets nothing.
void CreditRun(Board& board, const Play& play, const Move& move, int by);

// What the person decides about a run otherwise than the board: whether it was batted in, and
// whether it is earned. The figures of the sheet follow. Each is one step of the history. Nothing
// happens where the play has no such run, or has it so already.
void SetBattedIn(Board& board, std::size_t play, std::size_t move, bool battedIn);
void SetEarned(Board& board, std::size_t play, std::size_t move, bool earned);

}  // namespace dtb
