#include "game/pitcher_of_record.h"

namespace dtb {

bool ChargePitcher(Board& board, int column) {
  const auto atBat = SideAtBat(board.state);
  if (!atBat) return false;
  const SideFields fielding = SideOf(board, Other(*atBat));
  const auto row = fielding.grid.FindRow(stat_column::kPitcher, fielding.pitcher.value());
  if (!row) return false;
  fielding.grid.Raise(*row, column);
  return true;
}

}  // namespace dtb
