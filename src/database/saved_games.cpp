#include "database/saved_games.h"

#include <algorithm>
#include <unordered_map>

#include "database/rows.h"

namespace dtb {
namespace {

constexpr const char* kVisitorsHost = "a_VIS";
constexpr const char* kHomeHost = "b_HOME";

constexpr const char* kLines = "SELECT ifnull(GameID, ''), Team, Runs, Host FROM BoxScores";
constexpr const char* kInOrder = " ORDER BY ifnull(GameID, ''), rowid";

std::vector<SavedGame> ReadGames(DatabaseReader& database, const Statement& query) {
  struct Line {
    std::string team;
    std::string runs;
  };
  std::vector<LineKey> keys;
  std::vector<Line> lines;
  ForEachRow(database, query, [&](std::span<const DatabaseValue> row) {
    keys.push_back({TextIn(row[0]), SideOfHost(TextIn(row[3]))});
    lines.push_back({TextIn(row[1]), TextIn(row[2])});
  });
  std::vector<SavedGame> games;
  for (const auto& [visitors, home] : PairLines(keys)) {
    SavedGame& game = games.emplace_back();
    game.id = keys[visitors ? *visitors : *home].id;
    if (visitors) {
      game.visitors = lines[*visitors].team;
      game.visitorsRuns = lines[*visitors].runs;
    }
    if (home) {
      game.home = lines[*home].team;
      game.homeRuns = lines[*home].runs;
    }
  }
  return games;
}

}  // namespace

const char* HostOf(Side side) { return side == Side::Visitors ? kVisitorsHost : kHomeHost; }

Side SideOfHost(std::string_view host) {
  return host == kVisitorsHost ? Side::Visitors : Side::Home;
}

std::vector<GameLines> PairLines(std::span<const LineKey> lines) {
  std::vector<GameLines> games;
  // Of each GameID, the games that wait for a line of the side.
  std::unordered_map<std::string_view, std::vector<std::size_t>> ofId;
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const auto half = lines[line].side == Side::Visitors ? &GameLines::visitors : &GameLines::home;
    std::vector<std::size_t>& known = ofId[lines[line].id];
    const auto game = std::ranges::find_if(
        known, [&](std::size_t place) { return !(games[place].*half).has_value(); });
    if (game != known.end()) {
      games[*game].*half = line;
      known.erase(game);  // it is whole
      continue;
    }
    known.push_back(games.size());
    games.emplace_back().*half = line;
  }
  return games;
}

std::vector<SavedGame> ReadSavedGames(DatabaseReader& database) {
  return ReadGames(database, {std::string(kLines) + kInOrder});
}

std::vector<SavedGame> ReadSavedGames(DatabaseReader& database, const std::string& id) {
  return ReadGames(database, {std::string(kLines) + " WHERE GameID = ?1" + kInOrder, {id}});
}

std::unordered_set<std::string> SavedGameIDs(DatabaseReader& database) {
  std::unordered_set<std::string> ids;
  ForEachRow(database, {"SELECT DISTINCT GameID FROM BoxScores"},
             [&ids](std::span<const DatabaseValue> row) { ids.insert(TextIn(row.front())); });
  return ids;
}

SavedGame GameInRow(const StatGrid& lineScores, int row) {
  using namespace line_score_column;
  const std::string id(lineScores.Text(row, kGameID));
  std::vector<LineKey> keys;
  std::vector<int> rows;
  for (int line = 1; line < lineScores.rows(); ++line) {
    if (lineScores.Text(line, kGameID) != id) continue;
    keys.push_back({id, SideOfHost(lineScores.Text(line, kHost))});
    rows.push_back(line);
  }
  SavedGame game{.id = id};
  for (const auto& [visitors, home] : PairLines(keys)) {
    const auto isRow = [&](std::optional<std::size_t> line) { return line && rows[*line] == row; };
    if (!isRow(visitors) && !isRow(home)) continue;
    if (visitors) {
      game.visitors = lineScores.Text(rows[*visitors], kTeam);
      game.visitorsRuns = lineScores.Text(rows[*visitors], kRuns);
    }
    if (home) {
      game.home = lineScores.Text(rows[*home], kTeam);
      game.homeRuns = lineScores.Text(rows[*home], kRuns);
    }
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

}  // namespace dtb
