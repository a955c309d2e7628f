// Who batted in which place of the order, and who came in for whom.
#pragma once

#include <string>
#include <vector>

#include "record/game_record.h"

namespace dtb {

enum class Entrance { Start, Batting, Running };

struct BattingPlace {
  std::string name;
  int place = 0;  // 1 to 9
  Entrance entrance = Entrance::Start;
  std::size_t play = 0;      // of the game: the one in which he is first seen
  std::string instead = {};  // who stood in the place before him; "" for a starter
};

// In the order in which the plays of a side first name them. The first nine times at bat are those
// of the starters; whoever is new later has the place that is due, or that of the runner for whom
// he runs. A player without a play is not there.
[[nodiscard]] std::vector<BattingPlace> PlacesOf(const GameRecord& game, Side side);

}  // namespace dtb
