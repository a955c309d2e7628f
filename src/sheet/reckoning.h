// What the half-innings of a side add up to (Official Baseball Rules, 9.03(c)).
#pragma once

#include <optional>

#include "game/board.h"

namespace dtb {

struct Reckoning {
  double appearances = 0;  // at-bats and walks
  double outs = 0;
  double runs = 0;
  double leftOnBase = 0;  // what is left over; below 0 where appearances are missing
  double mostOnBase = 0;  // three for each half-inning begun
};

[[nodiscard]] Reckoning Reckon(Board& board, Side side);

// The sum of a column of a table over all players.
[[nodiscard]] double SumOf(const StatGrid& grid, int column);

// Runners of a side that were left on base: as its plays have it (PlaysTell), else at-bats and
// walks, less its runs and its outs. Nothing where that cannot be, below 0 or above 3 for each
// half-inning begun: hand corrections, or figures that are missing.
[[nodiscard]] std::optional<int> LeftOnBase(Board& board, Side side);

}  // namespace dtb
