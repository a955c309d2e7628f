// The games of a database, by their line scores.
#pragma once

#include <string>
#include <vector>

#include "platform/database.h"

namespace dtb {

struct SavedGame {
  std::string id;  // GameID
  std::string visitors = {};
  std::string home = {};
  std::string visitorsRuns = {};
  std::string homeRuns = {};

  // NOLINTNEXTLINE(modernize-use-nullptr): a slip of the tool at this operator
  friend auto operator<=>(const SavedGame&, const SavedGame&) = default;
};

// All games, by GameID. A line without its other half is a game with one team. Files of the years
// before may have several games under one GameID: the first visitors' line goes with the first home
// line, and so on. Throws ProgramError.
[[nodiscard]] std::vector<SavedGame> ReadSavedGames(DatabaseReader& database);

// The same for one GameID.
[[nodiscard]] std::vector<SavedGame> ReadSavedGames(DatabaseReader& database,
                                                    const std::string& id);

// The game of a row of a list of line scores, after the same rule.
[[nodiscard]] SavedGame GameInRow(const StatGrid& lineScores, int row);

// The games have a team in common. Under one GameID nothing says then whose rows of players are
// whose.
[[nodiscard]] bool ShareATeam(const SavedGame& one, const SavedGame& other);

// "New York 1960 4, Pittsburgh 1960 10".
[[nodiscard]] std::string ScoreText(const SavedGame& game);

// The number that a query gives in its only cell. Throws ProgramError.
[[nodiscard]] int CountOf(DatabaseReader& database, const Statement& query);

// "1 game", "3 games".
[[nodiscard]] std::string Counted(int count, const std::string& what);

}  // namespace dtb
