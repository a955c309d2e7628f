// Outs, half-innings and the line score: the clock of the game.
#pragma once

#include <string_view>

#include "game/board.h"

namespace dtb {

// The rule that runs on every change of tb_OUT: at the third out the half-inning ends, its cell is
// marked, the master count goes up by 3 and the sides change over. At 120 outs it only tells that
// the frame of twenty innings is full.
void OutsChanged(Board& board);

// The rule that runs on every change of tb_OutsCount: rebuilds the marks of all 40 half-innings
// from the number. Text that is no number is told and changes nothing else.
void OutsCountChanged(Board& board);

// Adds the innings of each line-score row into its total of runs. Text that is no number counts 0.
void ScoreUpdate(Board& board);

// Innings that a side has pitched, with two decimals, less those its pitchers are credited with.
// Its outs are those of all finished half-innings of the other side and of the one in progress.
[[nodiscard]] double InningsNotCredited(Board& board, Side fielding);

// Writes InningsNotCredited into the row of a pitcher of that side, the first that has the name.
// Without such a row nothing is written.
void CreditInnings(Board& board, Side fielding, std::string_view pitcher);

// Settles the innings of the pitcher who has just left the side in the field: outs of all finished
// half-innings and of the one in progress, less what the side's pitchers are credited with already.
void CalcPitcherIP(Board& board);

}  // namespace dtb
