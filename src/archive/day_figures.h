// What each player did in each game, packed into some six bytes, so that an archive of all seasons
// ever played still fits.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "archive/season.h"

namespace dtb::archive {

// One player's part in one game: his figures of that day alone, without positions.
struct DayFigures {
  int player = kNobody;  // of the side's club
  Batting batting;
  Pitching pitching;  // with games 1 where he pitched
};

// Packs what was added between two states of a player's figures, behind what stands there.
void PackDay(std::vector<std::uint8_t>& packed, int player, const Batting& before,
             const Batting& after, const Pitching& pitchedBefore, const Pitching& pitchedAfter);

// Calls the function with all players whom the side had in the game.
void ForEachDay(const GameSide& side, const std::function<void(const DayFigures&)>& take);

// Adds the counters of a day.
void Add(Batting& sum, const Batting& day);
void Add(Pitching& sum, const Pitching& day);

// Bits of GameSide::untold.
[[nodiscard]] std::uint32_t UntoldBit(int Batting::*figure);
[[nodiscard]] std::uint32_t UntoldBit(int Pitching::*figure);
inline constexpr std::uint32_t kAllUntold = ~std::uint32_t{0};

}  // namespace dtb::archive
