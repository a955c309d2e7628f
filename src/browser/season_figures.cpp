#include "browser/season_figures.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "game/text_cell.h"
#include "platform/text.h"
#include "sheet/stat_grid.h"
#include "shell/time_stamp.h"

namespace dtb {
namespace {

constexpr const char* kLineScores =
    "SELECT GameID, Team, Runs, Hits, Errors, Host FROM BoxScores ORDER BY rowid";

// By place. Innings are stored with their thirds as .33 and .67, and none at all as .0001.
constexpr std::array<const char*, 10> kBattingSums{
    "COUNT(*)",
    "SUM(AB)",
    "SUM(ifnull([1B], 0) + ifnull([2B], 0) + ifnull([3B], 0) + ifnull(HR, 0))",
    "SUM([2B])",
    "SUM([3B])",
    "SUM(HR)",
    "SUM(RBI)",
    "SUM(BB)",
    "SUM(K)",
    "SUM(SB)"};
constexpr std::array<const char*, 7> kPitchingSums{
    "COUNT(*)", "SUM(round(IP * 3))", "SUM(Hits)", "SUM(Runs)", "SUM(HR)", "SUM(BB)", "SUM(K)"};

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

StatGrid Rows(Database& database, const std::string& statement, const std::stop_token& stop) {
  StatGrid rows(1, 1);
  database.Run({statement, {}, stop}, rows);
  return rows;
}

SeasonSide SideIn(const StatGrid& lines, int row, Names& names) {
  return {names.PlaceOf(lines.Text(row, 2)), NumberOf(lines.Text(row, 3)),
          NumberOf(lines.Text(row, 4)), NumberOf(lines.Text(row, 5)), row};
}

// A game is two lines with its GameID, of which the visitors' sorts first by its host.
void AddGames(SeasonFigures& season, const StatGrid& lines, Names& names) {
  constexpr int kId = 1;
  constexpr int kHost = 6;
  std::multimap<std::string_view, int> waiting;
  for (int row = 1; row < lines.rows(); ++row) {
    const std::string_view id = lines.Text(row, kId);
    const std::string_view host = lines.Text(row, kHost);
    const auto [first, last] = waiting.equal_range(id);
    const auto other = std::find_if(
        first, last, [&](const auto& entry) { return lines.Text(entry.second, kHost) != host; });
    if (other == last) {
      waiting.emplace(id, row);
      continue;
    }
    const bool visitorsFirst = lines.Text(other->second, kHost) < host;
    const int visitors = visitorsFirst ? other->second : row;
    const int home = visitorsFirst ? row : other->second;
    waiting.erase(other);
    season.games.push_back({std::string(id),
                            TimeOfStamp(id),
                            {SideIn(lines, visitors, names), SideIn(lines, home, names)}});
  }
  season.lonelyLines = static_cast<int>(waiting.size());
  std::ranges::stable_sort(season.games, [](const SeasonGame& a, const SeasonGame& b) {
    return IsEarlier(a.time, b.time);
  });
}

void AddMen(SeasonFigures& season, const StatGrid& sums, SeasonRole role, Names& names) {
  std::unordered_map<std::string, std::size_t> known;
  const auto keyOf = [](std::string_view name, int team) {
    return std::to_string(team) + ' ' + std::string(name);
  };
  for (std::size_t i = 0; i < season.men.size(); ++i) {
    known.emplace(keyOf(season.men[i].name, season.men[i].team), i);
  }
  for (int row = 1; row < sums.rows(); ++row) {
    const std::string_view name = sums.Text(row, 1);
    const int team = names.PlaceOf(sums.Text(row, 2));
    const auto [man, added] = known.try_emplace(keyOf(name, team), season.men.size());
    if (added) season.men.push_back({std::string(name), team});
    SeasonMan& entry = season.men[man->second];
    auto& line = role == SeasonRole::Batting ? entry.batting : entry.pitching;
    if (!line) line.emplace();
    *line += SeasonLineOf(sums, row, 3, role);
  }
}

// Teams and men go to their places in the order of names.
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
  for (SeasonMan& man : season.men) man.team = placeOf[man.team];
  std::ranges::sort(season.men, [&](const SeasonMan& a, const SeasonMan& b) {
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
int CountMixed(const SeasonFigures& season) {
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
  return static_cast<int>(mixed.size());
}

std::optional<Quotient> Rate(double part, double whole) {
  return whole > 0 ? std::optional(Quotient{part, whole}) : std::nullopt;
}

}  // namespace

SeasonLine& operator+=(SeasonLine& sum, const SeasonLine& line) {
  for (std::size_t place = 0; place < sum.size(); ++place) sum.at(place) += line.at(place);
  return sum;
}

SeasonFigures ReadSeason(Database& database, const std::stop_token& stop) {
  SeasonFigures season;
  Names names(season.teams);
  AddGames(season, Rows(database, kLineScores, stop), names);
  AddMen(season,
         Rows(database,
              "SELECT Batter, Team, " + SeasonSums(SeasonRole::Batting) +
                  " FROM Batting GROUP BY Team, Batter",
              stop),
         SeasonRole::Batting, names);
  AddMen(season,
         Rows(database,
              "SELECT Pitcher, Team, " + SeasonSums(SeasonRole::Pitching) +
                  " FROM Pitching GROUP BY Team, Pitcher",
              stop),
         SeasonRole::Pitching, names);
  PutInOrder(season);
  AddRecords(season);
  season.mixedGames = CountMixed(season);
  return season;
}

bool IsEarlier(const std::optional<LocalTime>& first, const std::optional<LocalTime>& second) {
  if (!first || !second) return first.has_value() && !second.has_value();
  const auto key = [](const LocalTime& time) {
    return std::tuple(time.year, time.month, time.day, time.secondsSinceMidnight());
  };
  return key(*first) < key(*second);
}

std::string SeasonSums(SeasonRole role) {
  std::string list;
  const auto add = [&list](const auto& sums) {
    for (const char* sum : sums) list += (list.empty() ? "" : ", ") + std::string(sum);
  };
  role == SeasonRole::Batting ? add(kBattingSums) : add(kPitchingSums);
  return list;
}

SeasonLine SeasonLineOf(const StatGrid& rows, int row, int column, SeasonRole role) {
  const std::size_t places =
      role == SeasonRole::Batting ? kBattingSums.size() : kPitchingSums.size();
  SeasonLine line{};
  for (std::size_t place = 0; place < places; ++place) {
    line.at(place) = NumberOf(rows.Text(row, column + static_cast<int>(place)));
  }
  return line;
}

std::optional<Quotient> BattingAverage(const SeasonLine& batting) {
  return Rate(batting[batting_line::kHits], batting[batting_line::kAtBats]);
}

std::optional<Quotient> SluggingAverage(const SeasonLine& batting) {
  using namespace batting_line;
  return Rate(batting[kHits] + batting[kDoubles] + 2 * batting[kTriples] + 3 * batting[kHomeRuns],
              batting[kAtBats]);
}

std::optional<Quotient> EarnedRunAverage(const SeasonLine& pitching) {
  constexpr double kOutsOfNineInnings = 27;
  return Rate(kOutsOfNineInnings * pitching[pitching_line::kEarnedRuns],
              pitching[pitching_line::kOuts]);
}

}  // namespace dtb
