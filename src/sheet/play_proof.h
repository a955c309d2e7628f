// The plays of a game against its figures.
#pragma once

#include <vector>

#include "game/board.h"
#include "sheet/proof.h"

namespace dtb {

// The plays tell all of a side: there is one in each of its half-innings that is over, and in all
// of them the board kept the bases. Not where plays are missing, stand in another order than the
// innings, or are those of the other side's batters.
[[nodiscard]] bool PlaysTell(Board& board, Side batting);

// Where the plays tell: what the line score, the half-innings, the batters and the pitchers of the
// other side have otherwise. All of it only the person can mend. Nothing changes.
[[nodiscard]] std::vector<Finding> ProvePlays(Board& board, Side batting);

}  // namespace dtb
