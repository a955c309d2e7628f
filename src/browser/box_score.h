// From the list of line scores to the box score of one game.
#pragma once

#include <string>

#include "browser/browser.h"

namespace dtb {

// A click on a data cell of MSHFlexGrid1. On a GameID: puts it into Text9 and shows the game's box
// score. On any other column: empties Text9.
void SelectGameID(Browser& browser, int row, int column);

// Fills the five grids of tab 6 with the game whose GameID is in Text9 and goes to that tab. Its
// teams are those of the first two rows of MSHFlexGrid1 with that GameID, whose columns the rows of
// the game are then searched for by containment. Without any line score it only empties Text9. A
// failure is told once, and the tab stays.
void GetBoxScore(Browser& browser);

// The same for a game that is chosen elsewhere: its GameID goes into Text9, and its teams are
// named, so that it is found whatever MSHFlexGrid1 lists.
void ShowBoxScore(Browser& browser, const std::string& game, const std::string& visitors,
                  const std::string& home);

}  // namespace dtb
