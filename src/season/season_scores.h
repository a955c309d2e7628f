// How many runs the games of a season saw, and how often each score came.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "season/season_figures.h"

namespace dtb {

// More runs than these count as these: the last place is "so many or more".
inline constexpr int kMostRunsOfTeam = 20;
inline constexpr int kMostRunsOfScore = 15;

struct RunsOfMonth {
  std::string month;
  int games = 0;
  double runs = 0;  // of both teams
};

struct SeasonScores {
  int games = 0;
  double runs = 0;  // of both teams
  int homeWins = 0;
  int visitorsWins = 0;
  int ties = 0;
  int shutouts = 0;
  int byOneRun = 0;
  std::array<int, kMostRunsOfTeam + 1> ofTeam{};  // how often a team scored so many
  // finals[most][fewest]: how often a game ended so
  std::array<std::array<int, kMostRunsOfScore + 1>, kMostRunsOfScore + 1> finals{};
  std::vector<RunsOfMonth> months;
};

[[nodiscard]] SeasonScores CountScores(const SeasonFigures& season);

// "Games: 40. Runs per game, both teams: 8.53. ..."
[[nodiscard]] std::string ScoresText(const SeasonScores& scores);

// The scores that came, the most frequent first: "5-3: 12 times".
[[nodiscard]] std::string FinalsText(const SeasonScores& scores);

// "14", or "20+" for the last place.
[[nodiscard]] std::string RunsLabel(int runs, int most);

}  // namespace dtb
