// Start and end of a run.
#pragma once

#include <string>

#include "game/board.h"

namespace dtb {

// The build label of this version, as the main window's title and the version data give it.
inline constexpr const char* kBuildLabel = "Build025";

[[nodiscard]] std::string WindowTitle();

// Connects the change operations of the fields with their rules, sets up the sheet and the game
// pieces and reads the settings. Runs once, before any gesture.
void StartUp(Board& board);

// The exit question. True: the program may end; nothing is saved.
[[nodiscard]] bool ConfirmExit(Board& board);

// The menu command "Options" and the "X" of its panel.
void ToggleOptions(Board& board);

// The check box "SHOW BASE TRACKER" was clicked: the tracker itself decides whether it comes or
// goes.
void ToggleBaseTracker(Board& board);

}  // namespace dtb
