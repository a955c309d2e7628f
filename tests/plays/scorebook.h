// What a game's figures must be, straight from the archive's plays by the rules of scoring. Knows
// nothing of boards and gestures.
#pragma once

#include <array>
#include <map>
#include <string>

#include "plays/figures.h"
#include "plays/game_events.h"

namespace dtb::plays {

// Of each side: by the archive's name for a player, the board's.
using PlayerNames = std::array<std::map<std::string, std::string>, 2>;

// Rules that look at the count, which the board does not know: a walk belongs to the pitcher who
// spoiled the count, a strikeout to the batter who had two strikes.
enum class CountRules { Kept, LeftOut };

// "ER" is what the archive charges; "ER by marks" are the runs charged less those it marks as
// unearned, which must be the same.
[[nodiscard]] Figures KeepScore(const GameEvents& game, const PlayerNames& names, CountRules rules);

}  // namespace dtb::plays
