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
  std::vector<int> leftOut;   // for whom there is no room; who played least
  int starter = kNobody;      // who starts as pitcher, in the order or not
};

// The board's sheet has so many rows for a side.
inline constexpr std::size_t kMostMen = 49;

// Who stood there on that day, for both sides. The bench begins with the players who came into the
// game, in that order, and the pitchers with those who pitched; others of the club follow, who
// played most first. Of these only those belong who may have been with the club on that day: who
// was in a game for it both before and after, or within kNearDays, or of whom too few of its games
// are known to say. Who could belong to both clubs stands for the one for which more speaks.
[[nodiscard]] std::array<LineUp, 2> LineUpsOfGame(const Season& season, const Game& game);

inline constexpr int kNearDays = 10;

// The club's most usual nine: of all starting orders that it used, by place and position and with
// or without a pitcher among them as in most of its games, the one used most often; among equals
// the one whose players stood most often where they stand in it. The pitcher is who started most
// games. A club without any game gets its roster alone, who bats first.
[[nodiscard]] LineUp LineUpUsedMost(const Season& season, int club);

}  // namespace dtb::archive
