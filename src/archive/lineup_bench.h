// The bench and the bullpen behind nine players who are chosen already.
#pragma once

#include <limits>
#include <optional>
#include <vector>

#include "archive/lineup_choice.h"

namespace dtb::archive {

// How near to the day of a line-up a player was in a game of the club: 0, or less by each day
// between. Nothing: he was not with it, and stays out.
using Nearness = std::optional<int>;
inline constexpr int kNeverInAGame = std::numeric_limits<int>::min();

// Adds all other players of the club, one nearness for each, behind the pitchers and the bench that
// the line-up has: who played most first, and of the pitchers those who start before those who
// relieve. Where more are than have room, the added ones go first, of them who was least near, and
// of equally near ones who played least.
void AddOthers(const Club& club, LineUp& lineUp, const std::vector<Nearness>& nearness);

}  // namespace dtb::archive
