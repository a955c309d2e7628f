#include "season/season_standings.h"

#include <algorithm>
#include <cmath>

#include "base/text_cell.h"
#include "season/season_words.h"

namespace dtb {
namespace {

// A team without a decision stands where it would with as many wins as losses.
constexpr double kEven = 0.5;

}  // namespace

std::vector<Standing> Standings(const SeasonFigures& season) {
  std::vector<Standing> standings;
  for (std::size_t i = 0; i < season.teams.size(); ++i) {
    const SeasonTeam& team = season.teams[i];
    if (team.games.empty()) continue;
    const int decided = team.wins + team.losses;
    standings.push_back(
        {static_cast<int>(i),
         decided > 0 ? std::optional(Quotient{double(team.wins), double(decided)}) : std::nullopt});
  }
  std::ranges::stable_sort(standings, [&season](const Standing& a, const Standing& b) {
    const double first = a.share ? a.share->value() : kEven;
    const double second = b.share ? b.share->value() : kEven;
    if (first != second) return first > second;
    return season.teams[a.team].wins > season.teams[b.team].wins;
  });
  for (Standing& standing : standings) {
    standing.behind =
        (season.teams[standings.front().team].above() - season.teams[standing.team].above()) / 2.0;
  }
  return standings;
}

std::vector<CoursePoint> CourseOf(const SeasonFigures& season, int team) {
  std::vector<CoursePoint> course{{0, 0}};
  int above = 0;
  int lastGame = -1;
  for (const int game : season.teams[team].games) {
    if (game == lastGame) continue;  // against itself: a win and a loss
    lastGame = game;
    const auto& [visitors, home] = season.games[game].sides;
    if (visitors.team != home.team && visitors.runs != home.runs) {
      above += (visitors.runs > home.runs) == (visitors.team == team) ? 1 : -1;
    }
    course.push_back({game + 1, above});
  }
  return course;
}

std::vector<CoursePoint> LineOf(const std::vector<CoursePoint>& course) {
  std::vector<CoursePoint> line = course;
  if (line.size() > 1 && line[1].game > 1) {
    line.insert(line.begin() + 1, {line[1].game - 1, line.front().above});
  }
  return line;
}

std::string CourseText(const SeasonFigures& season, int team, const CoursePoint& point) {
  const std::string& name = season.teams[team].name;
  if (point.game < 1) return name + ": before the first game";
  int wins = 0;
  int losses = 0;
  int ties = 0;
  for (const int game : season.teams[team].games) {
    if (game >= point.game) break;
    const auto& [visitors, home] = season.games[game].sides;
    if (visitors.team == home.team || visitors.runs == home.runs) {
      ++ties;
    } else {
      ++((visitors.runs > home.runs) == (visitors.team == team) ? wins : losses);
    }
  }
  const SeasonGame& game = season.games[point.game - 1];
  return DayAndTimeText(game.time) + "\n" + ScoreText(season, game) + "\n" + name + ": " +
         RecordText(wins, losses, ties) + ", " + AboveText(point.above);
}

std::string StandingsText(const SeasonFigures& season) {
  std::string text;
  for (const Standing& standing : Standings(season)) {
    const SeasonTeam& team = season.teams[standing.team];
    text += team.name + ": " + RecordText(team.wins, team.losses, team.ties()) + ", " +
            AboveText(team.above()) + ".\n";
  }
  return text;
}

std::vector<std::vector<std::string>> StandingsTable(const SeasonFigures& season) {
  std::vector<std::vector<std::string>> table{{"Team", "W", "L", "T", "Pct", "GB", "R", "RA"}};
  for (const Standing& standing : Standings(season)) {
    const SeasonTeam& team = season.teams[standing.team];
    table.push_back({team.name, std::to_string(team.wins), std::to_string(team.losses),
                     std::to_string(team.ties()), AverageText(standing.share),
                     standing.behind == 0 ? "-" : FixedDecimals(standing.behind, 1),
                     DecimalText(team.runs), DecimalText(team.runsAllowed)});
  }
  return table;
}

LineLook LineLookOf(int place) {
  return {place % kLineColours, place / kLineColours % kLineDashes};
}

std::vector<double> AxisMarks(double lowest, double highest, int most, double least) {
  const double range = std::max(highest - lowest, 1e-9);
  double step = std::pow(10, std::floor(std::log10(range / std::max(1, most))));
  for (const double factor : {2.0, 2.5, 2.0, 2.0, 2.5}) {
    if (range / step <= most) break;
    step *= factor;
  }
  step = std::max(step, least);
  std::vector<double> marks;
  const auto first = std::llround(std::ceil(lowest / step));
  const auto last = std::llround(std::floor(highest / step));
  for (auto mark = first; mark <= last; ++mark) marks.push_back(double(mark) * step);
  return marks;
}

std::vector<MonthMark> MonthMarks(const SeasonFigures& season) {
  std::vector<MonthMark> marks;
  for (std::size_t i = 0; i < season.games.size(); ++i) {
    const std::string month = MonthText(season.games[i].time);
    if (marks.empty() || marks.back().month != month) marks.push_back({static_cast<int>(i), month});
  }
  return marks;
}

}  // namespace dtb
