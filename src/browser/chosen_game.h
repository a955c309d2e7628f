// What is chosen in the browser's tables, and what can be done with it.
#pragma once

#include <optional>

#include "browser/browser.h"
#include "database/remove_game.h"

namespace dtb {

// The game that a person means: that of a row of MSHFlexGrid1, or without a row the only game there
// whose GameID contains the text of Text9. Nothing if that is not one game.
[[nodiscard]] std::optional<GameChoice> ChosenGame(const BrowserState& state, int row);

// "Delete this game": TakeOutGame in database/remove_game.h. Then the tables are read again, each
// with the search that it shows. Where no game is chosen that is told.
void TakeOutChosen(Browser& browser, const std::optional<GameChoice>& game);

// A click on a row of MSHFlexGrid9 or MSHFlexGrid10: its name goes into lbl_DEL2.
void SelectForDelete(Browser& browser, const BrowserGrid& grid, int row);

// "DELETE Matchup or Win/Loss", Command36: the record of the team, or of the pairing, in lbl_DEL2.
// The grids keep their rows until the next query or opening.
void DeleteSelected(Browser& browser);

// Looks for a game that stands in the database under two GameIDs, and says so in lbl_Twice.
void FindGameSavedTwice(Browser& browser);

}  // namespace dtb
