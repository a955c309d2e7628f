// The standings as pictures of web pages: a line for each team.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/colour.h"
#include "season/season_standings.h"

namespace dtb {

// How far all courses go, and how many teams the largest group has.
struct CourseRange {
  int lowest = 0;
  int highest = 0;
  std::size_t most = 0;
};

// A picture for each group of teams, each once for a wide page and once for a narrow one, with the
// teams' names at the ends of their lines. Behind them the lines of all other teams are faint.
class StandingsDrawings {
 public:
  // The season has to outlive it.
  StandingsDrawings(const SeasonFigures& season, const std::vector<GroupStandings>& groups);

  // The faint lines, which all pictures show; stands in the page before the first. "" for one group
  // alone.
  [[nodiscard]] std::string Shared() const;
  [[nodiscard]] std::string OfGroup(const std::vector<Standing>& standings) const;

 private:
  const SeasonFigures& season_;
  std::vector<std::string> names_;
  std::vector<int> others_;  // the teams whose lines are shared
  CourseRange range_;
};

// The colours of lines on a dark ground, by LineLook::colour; pages.css has those on a light one.
inline constexpr std::array<Colour, kLineColours> kLineColoursOnDark{{{240, 165, 30},
                                                                      {96, 190, 245},
                                                                      {30, 185, 140},
                                                                      {240, 228, 66},
                                                                      {240, 110, 60},
                                                                      {220, 145, 195},
                                                                      {243, 233, 210}}};
// The same colours, as a rule of a style sheet.
[[nodiscard]] std::string LineColoursOnDark();

// A piece of the line of the team that stands at this place of its group.
[[nodiscard]] std::string LineSample(int place);

}  // namespace dtb
