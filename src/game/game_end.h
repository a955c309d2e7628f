// When a game is over (Official Baseball Rules, 7.01).
#pragma once

#include <string>

#include "game/board_state.h"

namespace dtb {

// By innings and score: the home team is ahead after the top of the ninth or later, or goes ahead
// in the bottom, or an inning from the ninth on ends with one side ahead.
[[nodiscard]] bool IsGameOver(const BoardState& state);

// "Final: Boston 3, Chicago 4"
[[nodiscard]] std::string FinalScore(const BoardState& state);

}  // namespace dtb
