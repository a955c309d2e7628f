// One game alone is taken out of the database.
#pragma once

#include <string>
#include <vector>

#include "platform/platform.h"

namespace dtb {

// Which game is meant.
struct GameChoice {
  std::string id;
  // Visitors and home team, since files of the years before may have several games under one
  // GameID; none: whatever has the GameID.
  std::vector<std::string> teams = {};
  friend bool operator==(const GameChoice&, const GameChoice&) = default;
};

// Deletes all rows of a game in all nine tables, after a question that names it and a copy of the
// database. Rows of wins, losses and matchups have no GameID. They are found by the names of the
// teams; where fewer are left than games that gave such a row, the person says whether one of them
// goes. Finding, counting and deleting are one transaction: where another program has changed
// meanwhile what the person was asked about, nothing goes. Games of one GameID go alone where no
// team of theirs is in another one, else together. What came of it is told in boxes of this title,
// failures too. True: the tables may be others than before, here or by another program.
bool TakeOutGame(Platform& platform, const GameChoice& game, const std::string& title);

}  // namespace dtb
