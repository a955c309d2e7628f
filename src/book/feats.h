// What the games of a season have that is told for years: records of a game, no-hitters, cycles,
// streaks.
#pragma once

#include "book/chapter.h"
#include "season/season_places.h"

namespace dtb::book {

// What the pitchers of a side gave in a game, in the order in which they are stored.
struct PitchedSide {
  std::vector<int> players = {};
  PitchingTotals sum = {};
};
using PitchedGames = std::vector<std::array<PitchedSide, 2>>;

// The best games of the players in the figures of a role. Games whose players are not told apart
// count in none of these.
void FindBestGames(Chapter& chapter, const SeasonFigures& season, const AllOutings& outings,
                   SeasonRole role);
// The most runs and hits of a team, by the line scores.
void FindTeamGames(Chapter& chapter, const SeasonFigures& season);
// A single, a double, a triple and a home run in one game, in whatever order.
void FindCycles(Chapter& chapter, const SeasonFigures& season, const AllOutings& batting);
// Nine innings or more in which neither the rows of a side's pitchers nor the line score has a hit.
void FindNoHitters(Chapter& chapter, const SeasonFigures& season, const PitchedGames& pitched);
// Two or more games in a row with a hit. A game without an at-bat is passed over. The persons must
// be known.
void FindHittingStreaks(Chapter& chapter, const SeasonFigures& season, const AllOutings& batting);
// Two or more games in a row that a team won. A tie is passed over.
void FindWinningStreaks(Chapter& chapter, const SeasonFigures& season);

}  // namespace dtb::book
