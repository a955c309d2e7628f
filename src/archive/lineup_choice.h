// Which nine bat, who sits on the bench and who pitches.
#pragma once

#include <array>
#include <vector>

#include "archive/season.h"

namespace dtb::archive {

// The players of a team file in their order; players are indices of the club.
struct LineUp {
  // Nine in batting order, the pitcher among them if he bats; kNobody where the archive names none.
  // Empty where it names nobody at all.
  std::vector<Placed> order;
  std::vector<int> bench;     // the others who are no pitchers
  std::vector<int> pitchers;  // who starts first; none who stands in the order
  std::vector<int> leftOut;   // for whom there is no room
  int starter = kNobody;      // who starts as pitcher, in the order or not
};

// The board's sheet has so many rows for a side.
inline constexpr std::size_t kMostPlayers = 49;

// Who stood there on that day, for both sides. The bench begins with the players who came into the
// game, in that order, and the pitchers with those who pitched; others of the club follow, who
// played most first. Of these only those belong who may have been with the club on that day: who
// was in a game for it both before and after, or within kNearDays, or of whom too few of its games
// are known to say. Who could belong to both clubs stands for the one for which more speaks. Where
// there is no room for all, they go first who were longest in no game for it before and after.
[[nodiscard]] std::array<LineUp, 2> LineUpsOfGame(const Season& season, const Game& game);

inline constexpr int kNearDays = 10;

// Which nine of a club's season: the starting orders that are told in full are looked at, with or
// without a pitcher who bats as in most of them.
enum class SeasonNine {
  // The one order, by place and position, that was used most often whoever pitched; among equals
  // the one whose players stood most often where they stand in it.
  UsedMost,
  // Nine different players who may never have begun a game together. Each position, and the
  // designated hitter, is taken once: of all ways to fill them, the one whose players began most
  // games there, taken together. So a position is its leader's, and who leads at two of them plays
  // where the club misses him most, while the next best has the other; among equals count games
  // there of any kind. They bat where they batted most often when they began a game, again taken
  // together over all places; nearest to the middle of it, where another has that place.
  UsualNine
};

// The club's nine, the pitcher who started most games, and all others of its season. A club without
// such an order gets its roster alone, who bats first.
[[nodiscard]] LineUp LineUpOfSeason(const Season& season, int club, SeasonNine nine);

}  // namespace dtb::archive
