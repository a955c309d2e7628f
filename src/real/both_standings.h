// The standings of both worlds, beside each other.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "real/both_worlds.h"
#include "season/season_standings.h"

namespace dtb::real {

// A team's row. Its records are those of `replayed` and `really` below.
struct BothStanding {
  int team = 0;                         // its place among the teams, in both
  Standing replayed;                    // without a share where it has no game yet
  std::optional<Standing> really = {};  // nothing: it has no real game yet whose result is told
  std::optional<int> placeReally = {};  // 1 for the first
  // Games by which it is ahead of its real self; behind it is negative.
  double ahead = 0;
  int notTold = 0;  // real games that count, and whose result the archive does not tell
};

struct BothStandings {
  // Both worlds at the moment, with the same teams in the same places; behind them, in `really`,
  // stand opponents that were never replayed, without games of their own.
  SeasonFigures replayed;
  SeasonFigures really;
  std::vector<BothStanding> rows;  // the best of the replayed world first
};

// Of the teams that are compared and have played.
[[nodiscard]] BothStandings StandingsOfBoth(const BothWorlds& worlds, const Moment& moment);

// "+2.5", "-1.0" or "level".
[[nodiscard]] std::string AheadText(double ahead);

// Texts of the table, its header first.
[[nodiscard]] std::vector<std::vector<std::string>> BothTable(const BothStandings& standings);

// "37 of 162: 20-17, really 22-15": of one team, at so many of its games as are replayed.
[[nodiscard]] std::string HeadlineOf(const BothWorlds& worlds, int team);

// What to know of the table: to which moment it goes, which teams are not compared, and which
// results the archive does not tell.
[[nodiscard]] std::string BothNote(const BothWorlds& worlds, const BothStandings& standings,
                                   const Moment& moment);

}  // namespace dtb::real
