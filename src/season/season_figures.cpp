#include "season/season_figures.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "base/letters.h"
#include "base/time_stamp.h"
#include "database/rows.h"
#include "database/saved_games.h"

namespace dtb {
namespace {

constexpr const char* kLineScores =
    "SELECT GameID, Team, Runs, Hits, Errors, Host FROM BoxScores ORDER BY rowid";

// Places of names.
class Names {
 public:
  explicit Names(std::vector<SeasonTeam>& teams) : teams_(teams) {}
  int PlaceOf(std::string_view name) {
    const auto [entry, added] =
        places_.try_emplace(std::string(name), static_cast<int>(teams_.size()));
    if (added) teams_.push_back({.name = std::string(name)});
    return entry->second;
  }

 private:
  std::vector<SeasonTeam>& teams_;
  std::unordered_map<std::string, int> places_;
};

// The line scores, and which of them are games.
struct Lines {
  std::vector<LineKey> keys;
  std::vector<SeasonSide> sides;
};

Lines ReadLines(Database& database, const std::stop_token& stop, Names& names) {
  Lines lines;
  ForEachRow(database, {kLineScores, {}, stop}, [&](std::span<const DatabaseValue> row) {
    lines.keys.push_back({TextIn(row[0]), SideOfHost(TextIn(row[5]))});
    const int line = static_cast<int>(lines.keys.size());
    lines.sides.push_back({names.PlaceOf(TextIn(row[1])), NumberIn(row[2]), NumberIn(row[3]),
                           NumberIn(row[4]), line});
  });
  return lines;
}

// By GameID, "2020-08-07".
using Days = std::unordered_map<std::string, std::string>;

Days ReadDays(Database& database, const std::stop_token& stop) {
  Days days;
  ForEachRow(database, {"SELECT GameID, GameDate FROM Games WHERE GameDate <> ''", {}, stop},
             [&](std::span<const DatabaseValue> row) { days[TextIn(row[0])] = TextIn(row[1]); });
  return days;
}

void AddGames(SeasonFigures& season, const Lines& lines, const Days& days) {
  for (const auto& [visitors, home] : PairLines(lines.keys)) {
    if (!visitors || !home) {
      ++season.lonelyLines;
      continue;
    }
    const std::string& id = lines.keys[*visitors].id;
    const auto time = TimeOfStamp(id);
    const auto day = days.find(id);
    season.games.push_back({id,
                            time,
                            day == days.end() ? time : DateIn(day->second),
                            {lines.sides[*visitors], lines.sides[*home]}});
  }
  std::ranges::stable_sort(season.games, [](const SeasonGame& a, const SeasonGame& b) {
    return IsEarlier(a.time, b.time);
  });
}

std::string KeyOf(std::string_view name, int team) {
  return std::to_string(team) + ' ' + std::string(name);
}

void AddTotals(SeasonPlayer& player, const SeasonTotals& totals) {
  if (const auto* batting = std::get_if<BattingTotals>(&totals)) {
    if (!player.batting) player.batting.emplace();
    *player.batting += *batting;
  } else {
    if (!player.pitching) player.pitching.emplace();
    *player.pitching += std::get<PitchingTotals>(totals);
  }
}

void AddPlayers(SeasonFigures& season, Database& database, SeasonRole role, bool withPlays,
                const std::stop_token& stop, Names& names) {
  std::unordered_map<std::string, std::size_t> known;
  for (std::size_t i = 0; i < season.players.size(); ++i) {
    known.emplace(KeyOf(season.players[i].name, season.players[i].team), i);
  }
  const std::string statement = "SELECT " + NameColumnOf(role) + ", Team, " + SelectedSums(role) +
                                " FROM " + TableOf(role) + " GROUP BY Team, " + NameColumnOf(role);
  ForEachRow(database, {statement, {}, stop}, [&](std::span<const DatabaseValue> row) {
    const std::string name = TextIn(row[0]);
    const int team = names.PlaceOf(TextIn(row[1]));
    const auto [place, added] = known.try_emplace(KeyOf(name, team), season.players.size());
    if (added) season.players.push_back({name, team});
    SeasonPlayer& entry = season.players[place->second];
    const SeasonTotals totals = TotalsOf(row.subspan(2), role);
    AddTotals(entry, totals);
  });
  if (!withPlays) return;
  ForEachPlayPart(
      database, role, {},
      [&](const PlayPart& part) {
        const auto place = known.find(KeyOf(part.name, names.PlaceOf(part.team)));
        if (place == known.end()) return;  // he has no row of figures
        SeasonPlayer& entry = season.players[place->second];
        if (entry.has(role)) AddTotals(entry, part.part);
      },
      stop);
}

// Teams and players go to their places in the order of names.
void PutInOrder(SeasonFigures& season) {
  const auto before = [](const std::string& a, const std::string& b) {
    const int order = CompareNames(a, b);
    return order != 0 ? order < 0 : a < b;
  };
  std::vector<int> order(season.teams.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::sort(
      order, [&](int a, int b) { return before(season.teams[a].name, season.teams[b].name); });
  std::vector<SeasonTeam> teams;
  std::vector<int> placeOf(order.size());
  for (const int team : order) {
    placeOf[team] = static_cast<int>(teams.size());
    teams.push_back(std::move(season.teams[team]));
  }
  season.teams = std::move(teams);
  for (SeasonGame& game : season.games) {
    for (SeasonSide& side : game.sides) side.team = placeOf[side.team];
  }
  for (SeasonPlayer& player : season.players) player.team = placeOf[player.team];
  std::ranges::sort(season.players, [&](const SeasonPlayer& a, const SeasonPlayer& b) {
    return a.name != b.name ? before(a.name, b.name) : a.team < b.team;
  });
}

void AddRecords(SeasonFigures& season) {
  for (std::size_t game = 0; game < season.games.size(); ++game) {
    const auto& sides = season.games[game].sides;
    for (std::size_t i = 0; i < sides.size(); ++i) {
      const double own = sides.at(i).runs;
      const double others = sides.at(1 - i).runs;
      SeasonTeam& team = season.teams[sides.at(i).team];
      team.games.push_back(static_cast<int>(game));
      team.wins += own > others ? 1 : 0;
      team.losses += own < others ? 1 : 0;
      team.runs += own;
      team.runsAllowed += others;
    }
  }
}

// Games of one GameID with a team in common.
int MarkMixed(SeasonFigures& season) {
  std::map<std::pair<std::string_view, int>, std::vector<int>> gamesOf;  // of a GameID and a team
  for (std::size_t game = 0; game < season.games.size(); ++game) {
    const auto& [visitors, home] = season.games[game].sides;
    gamesOf[{season.games[game].id, visitors.team}].push_back(static_cast<int>(game));
    if (home.team != visitors.team) {
      gamesOf[{season.games[game].id, home.team}].push_back(static_cast<int>(game));
    }
  }
  std::set<int> mixed;
  for (const auto& [key, games] : gamesOf) {
    if (games.size() > 1) mixed.insert(games.begin(), games.end());
  }
  for (const int game : mixed) season.games[game].mixed = true;
  return static_cast<int>(mixed.size());
}

SeasonFigures ReadFigures(Database& database, bool withPlays, const std::stop_token& stop) {
  SeasonFigures season;
  Names names(season.teams);
  AddGames(season, ReadLines(database, stop, names), ReadDays(database, stop));
  for (const SeasonRole role : {SeasonRole::Batting, SeasonRole::Pitching}) {
    AddPlayers(season, database, role, withPlays, stop, names);
  }
  PutInOrder(season);
  AddRecords(season);
  season.mixedGames = MarkMixed(season);
  return season;
}

}  // namespace

SeasonFigures ReadSeasonFigures(Database& database, const std::stop_token& stop) {
  return ReadFigures(database, true, stop);
}

SeasonFigures ReadPlainFigures(Database& database, const std::stop_token& stop) {
  return ReadFigures(database, false, stop);
}

bool IsEarlier(const std::optional<LocalTime>& first, const std::optional<LocalTime>& second) {
  if (!first || !second) return first.has_value() && !second.has_value();
  const auto key = [](const LocalTime& time) {
    return std::tuple(time.year, time.month, time.day, time.secondsSinceMidnight());
  };
  return key(*first) < key(*second);
}

}  // namespace dtb
