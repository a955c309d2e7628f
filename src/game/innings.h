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

// Outs that a side has pitched by the line score: three for each finished half-inning of the other
// side, and those of the half in progress while it is in the field.
[[nodiscard]] int OutsInTheField(Board& board, Side fielding);

// Gives outs that were made, typed or marked since the last call to the present pitcher of the side
// in whose field they were made, and takes away those that are no longer. Outs that were made
// before a side had a pitcher are the first one's.
void CountPitchedOuts(Board& board);

// Adds the innings of each line-score row into its total of runs. Text that is no number counts 0.
void ScoreUpdate(Board& board);

// The runs of a row's innings, added up.
[[nodiscard]] double RunsOfInnings(const ScoreRow& row);

// Innings that a side has pitched, with two decimals. Its outs are those of all finished
// half-innings of the other side and of the one in progress, whichever side is in the field.
[[nodiscard]] double InningsPitchedBySide(Board& board, Side fielding);

// The same less the innings that its pitchers are credited with.
[[nodiscard]] double InningsNotCredited(Board& board, Side fielding);

// Writes InningsNotCredited into the row of a pitcher of that side, the first that has the name.
// Without such a row nothing is written.
void CreditInnings(Board& board, Side fielding, std::string_view pitcher);

// Credits the present pitcher of a side for as long as it takes to write a report: what stood in
// his cell is remembered, and comes back with the operation below.
void SettleForReport(Board& board, Side fielding);

// Puts back what the last report settled, on both sides, unless the cell was changed since. Comes
// before all that works out innings.
void TakeBackReportedInnings(Board& board);

// Settles the innings of the pitcher who has just left the side in the field: outs of all finished
// half-innings and of the one in progress, less what the side's pitchers are credited with already.
void CalcPitcherIP(Board& board);

}  // namespace dtb
