#include "season/season_book.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "database/rows.h"

namespace dtb {
namespace {

constexpr const char* kLineScores = "SELECT * FROM BoxScores ORDER BY rowid";

class Places {
 public:
  explicit Places(const SeasonFigures& season) : season_(season) {
    for (std::size_t i = 0; i < season.teams.size(); ++i) {
      teams_.emplace(season.teams[i].name, static_cast<int>(i));
    }
    for (std::size_t i = 0; i < season.players.size(); ++i) {
      men_.emplace(KeyOf(season.players[i].team, season.players[i].name), static_cast<int>(i));
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

void AddRows(SeasonBook& book, const Places& places, Database& database, SeasonRole role) {
  const auto roleAt = static_cast<std::size_t>(role);
  const std::string statement = "SELECT " + NameColumnOf(role) + ", Team, GameID, " +
                                SelectedFigures(role) + " FROM " + TableOf(role) +
                                " ORDER BY rowid";
  ForEachRow(database, {statement}, [&](std::span<const DatabaseValue> row) {
    const int team = places.TeamOf(TextIn(row[1]));
    const int man = team < 0 ? -1 : places.ManOf(team, TextIn(row[0]));
    if (man < 0) return;  // saved while the pages are being written
    const std::string id = TextIn(row[2]);
    const SeasonTotals line = TotalsOf(row.subspan(3), role);
    auto& outings = book.outings[man].at(roleAt);
    if (outings.empty() || outings.back().id != id) {
      outings.push_back({.id = id, .time = {}, .line = NoTotals(role)});
    }
    outings.back().line += line;
    const int game = places.GameOf(id, team);
    if (game < 0) return;
    const std::size_t side = book.season.games[game].sides[0].team == team ? 0 : 1;
    book.games[game].at(side).at(roleAt).push_back({man, line});
  });
}

// What the tables of the plays add to the rows that stand in the book.
void AddPlayParts(SeasonBook& book, const Places& places, Database& database, SeasonRole role) {
  const auto roleAt = static_cast<std::size_t>(role);
  ForEachPlayPart(database, role, {.byGame = true}, [&](const PlayPart& part) {
    const int team = places.TeamOf(part.team);
    const int man = team < 0 ? -1 : places.ManOf(team, part.name);
    if (man < 0) return;
    auto& outings = book.outings[man].at(roleAt);
    const auto outing = std::ranges::find(outings, part.game, &SeasonOuting::id);
    if (outing != outings.end()) outing->line += part.part;
    const int game = places.GameOf(part.game, team);
    if (game < 0) return;
    const std::size_t side = book.season.games[game].sides[0].team == team ? 0 : 1;
    auto& entries = book.games[game].at(side).at(roleAt);
    const auto entry = std::ranges::find(entries, man, &BookEntry::man);
    if (entry != entries.end()) entry->line += part.part;
  });
}

void AddDuels(SeasonBook& book, const Places& places, Database& database) {
  const auto add = [&](const std::string& team, const std::string& name, SeasonRole role,
                       SplitLine line) {
    const int place = places.TeamOf(team);
    const int man = place < 0 ? -1 : places.ManOf(place, name);
    if (man < 0) return;
    auto& duels = book.duels[man].at(static_cast<std::size_t>(role));
    if (duels.size() < kMostDuels) duels.push_back(std::move(line));
  };
  ForEachDuel(database, [&](const Duel& duel) {
    add(duel.team, duel.batter, SeasonRole::Batting,
        {.name = duel.pitcher, .team = duel.opponent, .line = duel.line});
    add(duel.opponent, duel.pitcher, SeasonRole::Pitching,
        {.name = duel.batter, .team = duel.team, .line = duel.line});
  });
}

}  // namespace

SeasonBook ReadSeasonBook(Database& database) {
  SeasonBook book;
  book.season = ReadSeasonFigures(database);
  const SeasonFigures& season = book.season;
  book.lineScores.Take(TextsOf(database, {kLineScores}));
  book.games.resize(season.games.size());
  book.outings.resize(season.players.size());
  book.duels.resize(season.players.size());
  const Places places(season);
  AddDuels(book, places, database);
  for (const SeasonRole role : kSeasonRoles) {
    AddRows(book, places, database, role);
    AddPlayParts(book, places, database, role);
  }
  for (std::size_t man = 0; man < season.players.size(); ++man) {
    for (const SeasonRole role : kSeasonRoles) {
      SettleOutings(season, {season.players[man].team, season.players[man].name, false, role},
                    book.outings[man].at(static_cast<std::size_t>(role)));
    }
  }
  return book;
}

}  // namespace dtb
