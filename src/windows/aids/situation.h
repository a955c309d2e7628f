// What one needs to know of the game to read a chart.
#pragma once

#include <QWidget>

#include "game/board.h"

namespace dtb {

// Inning, outs and score, the batter and the pitcher with what is remarked of them, and the players
// on the game pieces, as they are when it is made; for type of this scale.
[[nodiscard]] QWidget* MakeSituation(Board& board, double scale, QWidget* parent);

// "Top of the 7th, 1 out"; while nobody is at bat, that.
[[nodiscard]] QString InningInWords(const BoardState& state);

}  // namespace dtb
