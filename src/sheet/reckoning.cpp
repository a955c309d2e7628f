#include "sheet/reckoning.h"

#include <cmath>

#include "game/innings.h"
#include "game/play_sums.h"
#include "sheet/play_proof.h"

namespace dtb {

Reckoning Reckon(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  int halves = 0;
  for (int inning = 0; inning < kInnings; ++inning) {
    if (fields.score.at(inning).colour.value() == kFinishedYellow) ++halves;
  }
  Reckoning reckoning;
  reckoning.outs = 3.0 * halves;
  const double inProgress = board.state.tb_OUT.number();
  if (fields.atBat.value() && inProgress < 3) reckoning.outs += inProgress;
  reckoning.appearances =
      SumOf(fields.grid, stat_column::kAtBats) + SumOf(fields.grid, stat_column::kWalks);
  reckoning.runs = RunsOfInnings(fields.score);
  reckoning.leftOnBase = reckoning.appearances - reckoning.runs - reckoning.outs;
  reckoning.mostOnBase = kBases * (halves + 1.0);
  return reckoning;
}

double SumOf(const StatGrid& grid, int column) {
  double sum = 0;
  for (int row = 1; row < grid.rows(); ++row) sum += NumberOf(grid.Text(row, column));
  return sum;
}

std::optional<int> LeftOnBase(Board& board, Side side) {
  if (PlaysTell(board, side)) return SumsOf(board, side).leftOnBase;
  const Reckoning reckoning = Reckon(board, side);
  const double left = reckoning.leftOnBase;
  if (left != std::floor(left) || left < 0 || left > reckoning.mostOnBase) return std::nullopt;
  return static_cast<int>(left);
}

}  // namespace dtb
