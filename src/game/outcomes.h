// The clicks on the outcome labels.
#pragma once

#include "game/board.h"
#include "game/outcome.h"

namespace dtb {

// A click on an outcome label: the whole operation, with its boxes and its error report.
void RecordOutcome(Board& board, Outcome outcome);

}  // namespace dtb
