#include "browser/saved_games.h"

#include <algorithm>

#include "browser/browser_state.h"
#include "game/text_cell.h"
#include "sheet/stat_grid.h"

namespace dtb {
namespace {

constexpr const char* kLines = "SELECT ifnull(GameID, ''), Team, Runs, Host FROM BoxScores";
constexpr const char* kInOrder = " ORDER BY ifnull(GameID, ''), rowid";

constexpr const char* kVisitorsHost = "a_VIS";

// Lines on their way into games. Those of one GameID stand together.
class Pairing {
 public:
  void Add(const std::string& id, bool visitors, const std::string& team, const std::string& runs) {
    auto game = std::find_if(games_.begin() + first_, games_.end(), [&](const Half& half) {
      return half.game.id == id && !(visitors ? half.visitorsTaken : half.homeTaken);
    });
    if (game == games_.end()) {
      if (games_.empty() || games_.back().game.id != id) {
        first_ = static_cast<std::ptrdiff_t>(games_.size());
      }
      games_.push_back({{.id = id}});
      game = games_.end() - 1;
    }
    (visitors ? game->game.visitors : game->game.home) = team;
    (visitors ? game->game.visitorsRuns : game->game.homeRuns) = runs;
    (visitors ? game->visitorsTaken : game->homeTaken) = true;
  }
  [[nodiscard]] std::vector<SavedGame> games() const {
    std::vector<SavedGame> games;
    games.reserve(games_.size());
    for (const Half& half : games_) games.push_back(half.game);
    return games;
  }

 private:
  struct Half {
    SavedGame game;
    bool visitorsTaken = false;
    bool homeTaken = false;
  };
  std::vector<Half> games_;
  std::ptrdiff_t first_ = 0;  // of the GameID that came last
};

std::vector<SavedGame> ReadGames(DatabaseReader& database, const Statement& query) {
  StatGrid lines(1, 1);
  database.Run(query, lines);
  Pairing pairing;
  for (int row = 1; row < lines.rows(); ++row) {
    pairing.Add(std::string(lines.Text(row, 1)), lines.Text(row, 4) == kVisitorsHost,
                std::string(lines.Text(row, 2)), std::string(lines.Text(row, 3)));
  }
  return pairing.games();
}

}  // namespace

std::vector<SavedGame> ReadSavedGames(DatabaseReader& database) {
  return ReadGames(database, {std::string(kLines) + kInOrder});
}

std::vector<SavedGame> ReadSavedGames(DatabaseReader& database, const std::string& id) {
  return ReadGames(database, {std::string(kLines) + " WHERE GameID = ?1" + kInOrder, {id}});
}

SavedGame GameInRow(const StatGrid& lineScores, int row) {
  using namespace line_score_column;
  const std::string id(lineScores.Text(row, kGameID));
  const bool visitors = lineScores.Text(row, kHost) == kVisitorsHost;
  // Its place among the lines of its side, and the line of the other side at that place.
  int place = 0;
  int other = 0;
  SavedGame game{.id = id};
  const auto take = [&](int line, bool ofVisitors) {
    (ofVisitors ? game.visitors : game.home) = lineScores.Text(line, kTeam);
    (ofVisitors ? game.visitorsRuns : game.homeRuns) = lineScores.Text(line, kRuns);
  };
  take(row, visitors);
  const auto isOf = [&](int line, bool ofVisitors) {
    return lineScores.Text(line, kGameID) == id &&
           (lineScores.Text(line, kHost) == kVisitorsHost) == ofVisitors;
  };
  for (int line = 1; line < row; ++line) place += isOf(line, visitors) ? 1 : 0;
  for (int line = 1; line < lineScores.rows(); ++line) {
    if (isOf(line, !visitors) && other++ == place) take(line, !visitors);
  }
  return game;
}

bool ShareATeam(const SavedGame& one, const SavedGame& other) {
  const auto plays = [&other](const std::string& team) {
    return team == other.visitors || team == other.home;
  };
  return plays(one.visitors) || plays(one.home);
}

std::string ScoreText(const SavedGame& game) {
  return game.visitors + " " + game.visitorsRuns + ", " + game.home + " " + game.homeRuns;
}

int CountOf(DatabaseReader& database, const Statement& query) {
  StatGrid result(1, 1);
  database.Run(query, result);
  return result.rows() < 2 ? 0 : static_cast<int>(NumberOf(result.Text(1, 1)));
}

std::string Counted(int count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace dtb
