// Start and end of a run.
#pragma once

#include "game/board.h"

namespace dtb {

// Connects the change operations of the fields with their rules, sets up the sheet and the game
// pieces and reads the settings. Runs once, before any gesture.
void StartUp(Board& board);

// The exit question. True: every sound ends and the program may end; nothing is saved.
[[nodiscard]] bool ConfirmExit(Board& board);

// The menu command "Options" and the "X" of its panel.
void ToggleOptions(Board& board);

// The check box "SHOW BASE TRACKER" was clicked: the tracker itself decides whether it comes or
// goes.
void ToggleBaseTracker(Board& board);

}  // namespace dtb
