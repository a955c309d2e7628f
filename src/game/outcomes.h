// The clicks on the outcome labels.
#pragma once

#include "game/board.h"
#include "game/outcome.h"

namespace dtb {

// A click on an outcome label: the whole operation, with its boxes and its error report. Where the
// board keeps the bases, `out` is the base, 1 to 3, of the runner whom it puts out, 0 for the
// likeliest; without a runner such an outcome is refused with a box. Sacrifice and TakesFirst are
// recorded only there.
void RecordOutcome(Board& board, Outcome outcome, int out = 0);

}  // namespace dtb
