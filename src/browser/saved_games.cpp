#include "browser/saved_games.h"

#include <utility>

#include "game/text_cell.h"
#include "sheet/stat_grid.h"

namespace dtb {
namespace {

constexpr const char* kLines = "SELECT ifnull(GameID, ''), Team, Runs, Host FROM BoxScores";
constexpr const char* kInOrder = " ORDER BY ifnull(GameID, ''), rowid";

std::vector<SavedGame> ReadGames(Database& database, const Statement& query) {
  StatGrid lines(1, 1);
  database.Run(query, lines);
  std::vector<SavedGame> games;
  bool homeTaken = true;  // of the last game
  bool visitorsTaken = true;
  for (int row = 1; row < lines.rows(); ++row) {
    const std::string id(lines.Text(row, 1));
    const bool visitors = lines.Text(row, 4) == "a_VIS";
    const bool goesOn =
        !games.empty() && games.back().id == id && !(visitors ? visitorsTaken : homeTaken);
    if (!goesOn) {
      games.push_back({.id = id});
      visitorsTaken = homeTaken = false;
    }
    SavedGame& game = games.back();
    (visitors ? game.visitors : game.home) = lines.Text(row, 2);
    (visitors ? game.visitorsRuns : game.homeRuns) = lines.Text(row, 3);
    (visitors ? visitorsTaken : homeTaken) = true;
  }
  return games;
}

}  // namespace

std::vector<SavedGame> ReadSavedGames(Database& database) {
  return ReadGames(database, {std::string(kLines) + kInOrder});
}

std::vector<SavedGame> ReadSavedGames(Database& database, const std::string& id) {
  return ReadGames(database, {std::string(kLines) + " WHERE GameID = ?1" + kInOrder, {id}});
}

std::string ScoreText(const SavedGame& game) {
  return game.visitors + " " + game.visitorsRuns + ", " + game.home + " " + game.homeRuns;
}

int CountOf(Database& database, const Statement& query) {
  StatGrid result(1, 1);
  database.Run(query, result);
  return result.rows() < 2 ? 0 : static_cast<int>(NumberOf(result.Text(1, 1)));
}

std::string Counted(int count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace dtb
