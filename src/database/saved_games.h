// The games of a database, by their line scores.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "base/side.h"
#include "base/stat_grid.h"
#include "platform/database.h"

namespace dtb {

// What the column Host of a line score says of its side: "a_VIS", "b_HOME".
[[nodiscard]] const char* HostOf(Side side);
// Any other text than the visitors' is a home team's.
[[nodiscard]] Side SideOfHost(std::string_view host);

// Columns of a table of whole line scores.
namespace line_score_column {
inline constexpr int kTeam = 1;
inline constexpr int kRuns = 22;
inline constexpr int kHost = 25;
inline constexpr int kGameID = 26;
}  // namespace line_score_column

// What makes line scores a game.
struct LineKey {
  std::string id;  // GameID
  Side side = Side::Visitors;
};

// The places of a game's lines among all; none: the game has but one.
struct GameLines {
  std::optional<std::size_t> visitors = {};
  std::optional<std::size_t> home = {};
};

// The one rule of which lines are a game: two of one GameID, of the visitors and of a home team.
// Files of the years before may have several games under one GameID: the first visitors' line goes
// with the first home line, and so on. The games stand in the order of their first lines.
[[nodiscard]] std::vector<GameLines> PairLines(std::span<const LineKey> lines);

struct SavedGame {
  std::string id;  // GameID
  std::string visitors = {};
  std::string home = {};
  std::string visitorsRuns = {};
  std::string homeRuns = {};

  // NOLINTNEXTLINE(modernize-use-nullptr): a slip of the tool at this operator
  friend auto operator<=>(const SavedGame&, const SavedGame&) = default;
};

// All games, by GameID. A line without its other half is a game with one team. Throws ProgramError,
// here and below.
[[nodiscard]] std::vector<SavedGame> ReadSavedGames(DatabaseReader& database);

// The same for one GameID.
[[nodiscard]] std::vector<SavedGame> ReadSavedGames(DatabaseReader& database,
                                                    const std::string& id);

// The GameIDs of all games.
[[nodiscard]] std::unordered_set<std::string> SavedGameIDs(DatabaseReader& database);

// The game of a row of a table of line scores.
[[nodiscard]] SavedGame GameInRow(const StatGrid& lineScores, int row);

// The games have a team in common. Under one GameID nothing says then whose rows of players are
// whose.
[[nodiscard]] bool ShareATeam(const SavedGame& one, const SavedGame& other);

// "New York 1960 4, Pittsburgh 1960 10".
[[nodiscard]] std::string ScoreText(const SavedGame& game);

}  // namespace dtb
