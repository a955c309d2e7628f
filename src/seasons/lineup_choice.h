// Which nine bat, who sits on the bench and who pitches.
#pragma once

#include <vector>

#include "seasons/season.h"

namespace dtb::seasons {

// The men of a team file in their order; men are indices of the club.
struct LineUp {
  std::vector<Placed> order;  // nine in batting order, the pitcher among them if he bats
  std::vector<int> bench;     // the others who are no pitchers
  std::vector<int> pitchers;  // who starts first; none who stands in the order
  std::vector<int> leftOut;   // for whom there is no room; who played least
};

// The board's sheet has so many rows for a side.
inline constexpr std::size_t kMostMen = 49;

// Who stood there on that day. The bench begins with the men who came into the game, in that order,
// and the pitchers with those who pitched; all others of the club follow, who played most first.
[[nodiscard]] LineUp LineUpOfGame(const Season& season, const Game& game, int side);

// The club's most usual nine: of all starting orders that it used, by place and position and with
// or without a pitcher among them as in most of its games, the one used most often; among equals
// the one whose men stood most often where they stand in it. The pitcher is who started most games.
// A club without any game gets its roster alone, who bats first.
[[nodiscard]] LineUp LineUpUsedMost(const Season& season, int club);

}  // namespace dtb::seasons
