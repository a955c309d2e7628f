// All that the pages of a season show, row by row.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/stat_grid.h"
#include "season/season_splits.h"

namespace dtb {

// What a player did in a game.
struct BookEntry {
  int player = 0;
  SeasonTotals line;
};

inline constexpr std::size_t kMostDuels = 25;  // of a player and role

// Places of the two roles.
inline constexpr std::array kSeasonRoles{SeasonRole::Batting, SeasonRole::Pitching};

struct SeasonBook {
  SeasonFigures season;
  StatGrid lineScores{1, 1};  // Team, I1 to I20, Runs, Hits, Errors, from column 1 on
  // By game, side and role, as they were stored.
  std::vector<std::array<std::array<std::vector<BookEntry>, 2>, 2>> games;
  // By player and role, settled.
  std::vector<std::array<std::vector<SeasonOuting>, 2>> outings;
  // By player and role: whom he met most often.
  std::vector<std::array<std::vector<SplitLine>, 2>> duels;
};

// Reads all of it. Throws ProgramError.
[[nodiscard]] SeasonBook ReadSeasonBook(Database& database);

}  // namespace dtb
