// One game alone is taken out of the database; and games that were saved twice.
#pragma once

#include <optional>
#include <string>

#include "browser/browser.h"

namespace dtb {

// The GameID that a person means: that of a row of MSHFlexGrid1, or without a row that of the only
// game there whose GameID contains the text of Text9. Nothing if that is not one game.
[[nodiscard]] std::optional<std::string> ChosenGameID(const BrowserState& state, int row);

// "Take out this game": all its rows in all five tables, in one transaction, after a question that
// names it and a copy of the database. Rows of wins, losses and matchups bear no GameID. They are
// found by the names of the teams; where fewer are left than games that gave such a row, the person
// says whether one of them goes. Then the tables are read again. Where no game is chosen that is
// told.
void TakeOutGame(Browser& browser, const std::optional<std::string>& id);

// Looks through the games in MSHFlexGrid1 for one that stands there under two GameIDs: the same
// teams, line score and batting rows. Says so in lbl_Twice.
void FindGameSavedTwice(Browser& browser);

}  // namespace dtb
