// One game alone is taken out of the database; and games that were saved twice.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "browser/browser.h"

namespace dtb {

// Which game is meant.
struct GameChoice {
  std::string id;
  // Visitors and home team, since files of the years before may have several games under one
  // GameID; none: whatever has the GameID.
  std::vector<std::string> teams = {};
  friend bool operator==(const GameChoice&, const GameChoice&) = default;
};

// The game that a person means: that of a row of MSHFlexGrid1, or without a row the only game there
// whose GameID contains the text of Text9. Nothing if that is not one game.
[[nodiscard]] std::optional<GameChoice> ChosenGame(const BrowserState& state, int row);

// "Take out this game": all its rows in all five tables, after a question that names it and a copy
// of the database. Rows of wins, losses and matchups bear no GameID. They are found by the names of
// the teams; where fewer are left than games that gave such a row, the person says whether one of
// them goes. Finding, counting and deleting are one transaction: where another program has changed
// meanwhile what the person was asked about, nothing goes. Games of one GameID go alone where no
// team of theirs is in another one, else together. Then the tables are read again, each with the
// search that it shows. Where no game is chosen that is told.
void TakeOutGame(Browser& browser, const std::optional<GameChoice>& game);

// Looks for a game that stands in the database under two GameIDs: the same teams, line score and
// batting rows. Says so in lbl_Twice.
void FindGameSavedTwice(Browser& browser);

}  // namespace dtb
