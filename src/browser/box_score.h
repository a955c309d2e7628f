// From the list of line scores to the box score of one game.
#pragma once

#include <string>

#include "browser/browser.h"

namespace dtb {

// A click on a data cell of MSHFlexGrid1. On a GameID: shows the box score of the game whose line
// stands in the row. On any other column: empties Text9.
void SelectGameID(Browser& browser, int row, int column);

// Puts a game's GameID into Text9, fills the five grids of tab 6 with it and goes to that tab. The
// teams are named, so that the game is found whatever MSHFlexGrid1 lists, and apart from another
// one with its GameID; where the two have a team in common, that is told. A failure is told once,
// and the tab stays.
void ShowBoxScore(Browser& browser, const std::string& game, const std::string& visitors,
                  const std::string& home);

}  // namespace dtb
