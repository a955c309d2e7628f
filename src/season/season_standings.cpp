#include "season/season_standings.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <string_view>
#include <unordered_map>

#include "base/fixed_text.h"
#include "base/text_cell.h"
#include "base/utf8.h"
#include "season/season_words.h"

namespace dtb {
namespace {

// A team without a decision stands where it would with as many wins as losses.
constexpr double kEven = 0.5;

std::vector<Standing> StandingsOf(const SeasonFigures& season, const std::vector<int>& teams) {
  std::vector<Standing> standings;
  for (const int place : teams) {
    const SeasonTeam& team = season.teams[place];
    if (team.games.empty()) continue;
    const int decided = team.wins + team.losses;
    standings.push_back({place, decided > 0
                                    ? std::optional(Quotient{double(team.wins), double(decided)})
                                    : std::nullopt});
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

// " 2020" of "Oakland 2020"; "" for none.
std::string_view YearOf(std::string_view name) {
  constexpr std::size_t kYear = 5;
  if (name.size() <= kYear) return {};
  const std::string_view end = name.substr(name.size() - kYear);
  const bool digits =
      std::ranges::all_of(end.substr(1), [](char c) { return c >= '0' && c <= '9'; });
  return digits && end.front() == ' ' ? end : std::string_view();
}

std::string WithInitials(const std::string& name) {
  std::vector<std::string_view> words;
  for (std::string_view rest = name; !rest.empty();) {
    const std::string_view word = rest.substr(0, rest.find(' '));
    rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    if (!word.empty()) words.push_back(word);
  }
  if (words.size() < 2) return name;
  std::string shortened;
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    shortened += words[i].substr(0, FirstCharacter(words[i]).bytes);
  }
  return shortened + (words.size() == 2 ? ". " : " ") + std::string(words.back());
}

// Takes a change of all names that leaves each of them its own.
void TakeWhereTold(std::vector<std::string>& names, const std::vector<std::string>& changed) {
  std::map<std::string_view, int> bearers;
  for (const std::string& name : changed) ++bearers[name];
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (bearers.at(changed[i]) == 1) names[i] = changed[i];
  }
}

}  // namespace

std::vector<Standing> Standings(const SeasonFigures& season) {
  std::vector<int> teams(season.teams.size());
  std::iota(teams.begin(), teams.end(), 0);
  return StandingsOf(season, teams);
}

std::vector<GroupStandings> StandingsByGroup(const SeasonFigures& season,
                                             const TeamGroups& groups) {
  std::unordered_map<std::string_view, std::size_t> groupOf;
  for (std::size_t group = 0; group < groups.size(); ++group) {
    for (const std::string& team : groups[group].teams) groupOf.emplace(team, group);
  }
  std::vector<std::vector<int>> teams(groups.size() + 1);
  for (std::size_t team = 0; team < season.teams.size(); ++team) {
    const auto group = groupOf.find(season.teams[team].name);
    teams[group == groupOf.end() ? groups.size() : group->second].push_back(static_cast<int>(team));
  }
  std::vector<GroupStandings> standings;
  for (std::size_t group = 0; group < teams.size(); ++group) {
    auto lines = StandingsOf(season, teams[group]);
    if (!lines.empty()) {
      standings.push_back({group < groups.size() ? groups[group].name : "Other teams", lines});
    }
  }
  if (standings.size() == 1 && groups.empty()) standings.front().name.clear();
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

std::string StandingsText(const SeasonFigures& season, const std::vector<Standing>& standings) {
  std::string text;
  for (const Standing& standing : standings) {
    const SeasonTeam& team = season.teams[standing.team];
    text += team.name + ": " + RecordText(team.wins, team.losses, team.ties()) + ", " +
            AboveText(team.above()) + ".\n";
  }
  return text;
}

std::vector<std::string> StandingsHeader() {
  return {"Team", "W", "L", "T", "Pct", "GB", "R", "RA"};
}

std::vector<std::vector<std::string>> StandingsLines(const SeasonFigures& season,
                                                     const std::vector<Standing>& standings) {
  std::vector<std::vector<std::string>> lines;
  for (const Standing& standing : standings) {
    const SeasonTeam& team = season.teams[standing.team];
    lines.push_back({team.name, std::to_string(team.wins), std::to_string(team.losses),
                     std::to_string(team.ties()), AverageText(standing.share),
                     standing.behind == 0 ? "-" : FixedDecimals(standing.behind, 1),
                     DecimalText(team.runs), DecimalText(team.runsAllowed)});
  }
  return lines;
}

std::vector<std::string> PictureNames(const std::vector<SeasonTeam>& teams) {
  std::vector<std::string> names;
  names.reserve(teams.size());
  for (const SeasonTeam& team : teams) names.push_back(team.name);
  if (names.empty()) return names;
  const std::string year(YearOf(names.front()));
  const auto endsAlike = [&](const std::string& name) { return YearOf(name) == year; };
  if (!year.empty() && std::ranges::all_of(names, endsAlike)) {
    for (std::string& name : names) name.resize(name.size() - year.size());
  }
  constexpr std::size_t kLong = 17;  // letters; "New York Yankees" has 16
  std::vector<std::string> shortened = names;
  for (std::string& name : shortened) {
    if (LettersIn(name) > kLong) name = WithInitials(name);
  }
  TakeWhereTold(names, shortened);
  return names;
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
