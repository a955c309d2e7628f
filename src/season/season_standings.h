// Who leads, by how much, and how it came to that.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/team_groups.h"
#include "season/season_figures.h"

namespace dtb {

struct Standing {
  int team = 0;
  std::optional<Quotient> share;  // of the games won; none: only ties
  double behind = 0;              // games behind the first
};

// The teams that have played, the best share of wins first, then the most wins, then by name.
[[nodiscard]] std::vector<Standing> Standings(const SeasonFigures& season);

// The same for each group of teams, in the order of the groups: behind counts from the first of
// the group. Teams that have played and are in no group come last, as "Other teams"; a group of
// which no team has played is left out. Without any group all are one, which has no name.
struct GroupStandings {
  std::string name;
  std::vector<Standing> standings;
};
[[nodiscard]] std::vector<GroupStandings> StandingsByGroup(const SeasonFigures& season,
                                                           const TeamGroups& groups);

// A team's course: where it stands before the first game of the season, and after each of its own.
struct CoursePoint {
  int game = 0;   // so many games of the season have been played
  int above = 0;  // games above .500
};
[[nodiscard]] std::vector<CoursePoint> CourseOf(const SeasonFigures& season, int team);

// The corners of its line: it lies flat to the team's first game.
[[nodiscard]] std::vector<CoursePoint> LineOf(const std::vector<CoursePoint>& course);

// What a person is told of a game at a point of a team's course.
[[nodiscard]] std::string CourseText(const SeasonFigures& season, int team,
                                     const CoursePoint& point);

// "Ants: 10-4, 6 above .500", line by line.
[[nodiscard]] std::string StandingsText(const SeasonFigures& season,
                                        const std::vector<Standing>& standings);

// Texts of the table of standings: its header, and the lines of some of them.
[[nodiscard]] std::vector<std::string> StandingsHeader();
[[nodiscard]] std::vector<std::vector<std::string>> StandingsLines(
    const SeasonFigures& season, const std::vector<Standing>& standings);

// The names of the teams as a picture has room for them: without the year that all of them end
// with, and where a name is still long, with the first letters of all its words but the last:
// "P. Athletics", "NY Highlanders". No two become the same.
[[nodiscard]] std::vector<std::string> PictureNames(const std::vector<SeasonTeam>& teams);

// How a team's line is drawn, by its place in the standings of its group: seven colours that people
// of all kinds of sight tell apart, and for each a new dash when they begin again.
struct LineLook {
  int colour = 0;  // 0 to kLineColours - 1
  int dash = 0;    // 0: none
};
inline constexpr int kLineColours = 7;
inline constexpr int kLineDashes = 5;
[[nodiscard]] LineLook LineLookOf(int place);

// The places of the marks of an axis: round numbers, at most so many, from the lowest to the
// highest value or a little inside, and no closer than the least step.
[[nodiscard]] std::vector<double> AxisMarks(double lowest, double highest, int most,
                                            double least = 0);

// The first game of each month, for the axis of the season: how many games are played before it,
// and the month.
struct MonthMark {
  int game = 0;
  std::string month;
};
[[nodiscard]] std::vector<MonthMark> MonthMarks(const SeasonFigures& season);

}  // namespace dtb
