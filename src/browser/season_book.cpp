#include "browser/season_book.h"

#include <string_view>
#include <unordered_map>

#include "game/text_cell.h"

namespace dtb {
namespace {

// The rows of the tables with the line's places in order, behind the name; team and game follow.
constexpr const char* kBatting =
    "SELECT Batter, 1, AB, ifnull([1B], 0) + ifnull([2B], 0) + ifnull([3B], 0) + ifnull(HR, 0), "
    "[2B],"
    " [3B], HR, RBI, BB, K, SB, Team, GameID FROM Batting ORDER BY rowid";
constexpr const char* kPitching =
    "SELECT Pitcher, 1, round(IP * 3), Hits, Runs, HR, BB, K, Team, GameID FROM Pitching"
    " ORDER BY rowid";
constexpr const char* kLineScores = "SELECT * FROM BoxScores ORDER BY rowid";

class Places {
 public:
  explicit Places(const SeasonFigures& season) : season_(season) {
    for (std::size_t i = 0; i < season.teams.size(); ++i) {
      teams_.emplace(season.teams[i].name, static_cast<int>(i));
    }
    for (std::size_t i = 0; i < season.men.size(); ++i) {
      men_.emplace(KeyOf(season.men[i].team, season.men[i].name), static_cast<int>(i));
    }
    for (std::size_t i = 0; i < season.games.size(); ++i) {
      games_.emplace(season.games[i].id, static_cast<int>(i));
    }
  }

  [[nodiscard]] int TeamOf(std::string_view name) const { return Find(teams_, name); }
  [[nodiscard]] int ManOf(int team, std::string_view name) const {
    const auto man = men_.find(KeyOf(team, name));
    return man == men_.end() ? -1 : man->second;
  }
  // The first game with this GameID in which the team played; -1: none.
  [[nodiscard]] int GameOf(std::string_view id, int team) const {
    const auto [first, last] = games_.equal_range(id);
    int game = -1;
    for (auto entry = first; entry != last; ++entry) {
      const auto& sides = season_.games[entry->second].sides;
      const bool played = sides[0].team == team || sides[1].team == team;
      if (played && (game < 0 || entry->second < game)) game = entry->second;
    }
    return game;
  }

 private:
  static std::string KeyOf(int team, std::string_view name) {
    return std::to_string(team) + ' ' + std::string(name);
  }
  static int Find(const std::unordered_map<std::string_view, int>& places, std::string_view name) {
    const auto place = places.find(name);
    return place == places.end() ? -1 : place->second;
  }

  const SeasonFigures& season_;
  std::unordered_map<std::string_view, int> teams_;
  std::unordered_map<std::string, int> men_;
  std::unordered_multimap<std::string_view, int> games_;
};

void AddRows(SeasonBook& book, const Places& places, const StatGrid& rows, SeasonRole role) {
  const auto roleAt = static_cast<std::size_t>(role);
  const int id = rows.columns() - 1;
  for (int row = 1; row < rows.rows(); ++row) {
    const int team = places.TeamOf(rows.Text(row, id - 1));
    const int man = team < 0 ? -1 : places.ManOf(team, rows.Text(row, 1));
    if (man < 0) continue;  // saved while the pages are being written
    const SeasonLine line = SeasonLineOf(rows, row, 2, role);
    auto& outings = book.outings[man].at(roleAt);
    if (outings.empty() || outings.back().id != rows.Text(row, id)) {
      outings.emplace_back().id = rows.Text(row, id);
    }
    outings.back().line += line;
    const int game = places.GameOf(rows.Text(row, id), team);
    if (game < 0) continue;
    const std::size_t side = book.season.games[game].sides[0].team == team ? 0 : 1;
    book.games[game].at(side).at(roleAt).push_back({man, line});
  }
}

StatGrid Rows(Database& database, const char* statement) {
  StatGrid rows(1, 1);
  database.Run({statement}, rows);
  return rows;
}

}  // namespace

SeasonBook ReadSeasonBook(Database& database) {
  SeasonBook book;
  book.season = ReadSeason(database);
  const SeasonFigures& season = book.season;
  book.lineScores.Take(Rows(database, kLineScores));
  book.games.resize(season.games.size());
  book.outings.resize(season.men.size());
  const Places places(season);
  AddRows(book, places, Rows(database, kBatting), SeasonRole::Batting);
  AddRows(book, places, Rows(database, kPitching), SeasonRole::Pitching);
  for (std::size_t man = 0; man < season.men.size(); ++man) {
    for (const SeasonRole role : kSeasonRoles) {
      SettleOutings(season, {season.men[man].team, season.men[man].name, false, role},
                    book.outings[man].at(static_cast<std::size_t>(role)));
    }
  }
  return book;
}

}  // namespace dtb
