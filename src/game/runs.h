// Runs: one click a run, credited to the line score, the batter and the pitcher at once.
#pragma once

#include "game/board.h"

namespace dtb {

// The run goes to the half-inning in progress by the master count alone, also when nobody is found
// for the rest. Beyond twenty innings no cell is raised.
void RecordRun(Board& board);

// An earned run of the pitcher of record.
void AssignER(Board& board);

}  // namespace dtb
