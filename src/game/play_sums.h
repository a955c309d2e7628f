// What the plays of a game add up to.
#pragma once

#include <array>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "game/board.h"

namespace dtb {

// Of the side that bats in the even half-innings, or in the odd ones.
struct PlaySums {
  std::map<std::string, int> runs;      // R of each player who scored
  std::map<std::string, int> charged;   // runs of each pitcher of the other side, earned or not
  std::array<int, kInnings> innings{};  // runs of each inning
  int total = 0;
  int leftOnBase = 0;  // of the half-innings that are over, and of the last one of a game that is
};
// A game that is saved is over, however short.
[[nodiscard]] PlaySums SumsOf(const Board& board, Side batting);

// A half-inning proves itself: who came up is out, has scored or was left on base.
struct HalfSums {
  int half = 0;
  int cameUp = 0;  // plate appearances, and runners who came from the bench
  int outs = 0;
  int runs = 0;
  int left = 0;
  bool basesKept = true;  // in all of its plays
};
// Of each half-inning that has a play; `left` is who stands on base at the end of its last play.
[[nodiscard]] std::vector<HalfSums> HalvesOf(std::span<const Play> plays);
[[nodiscard]] std::vector<HalfSums> HalvesOf(const BoardState& state);

// The play ends a time at bat, or takes the place of one.
[[nodiscard]] bool EndsTimeAtBat(Outcome outcome);

}  // namespace dtb
