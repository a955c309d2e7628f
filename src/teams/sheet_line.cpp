#include "teams/sheet_line.h"

namespace dtb {
namespace {

// Nobody's line, without figures that somebody typed there. The mark of a starter stands in the
// first nine lines even of a shorter team.
bool IsFree(const StatGrid& grid, int row) {
  for (int column = stat_column::kBatter; column < stat_column::kPitcher; ++column) {
    if (!grid.Text(row, column).empty()) return false;
  }
  return true;
}

}  // namespace

void GiveSheetLine(Board& board, Side side, const std::string& name) {
  StatGrid& grid = SideOf(board, side).grid;
  if (name.empty() || grid.FindRow(stat_column::kBatter, name)) return;
  for (int row = 1; row < grid.rows(); ++row) {
    if (!IsFree(grid, row)) continue;
    grid.SetText(row, stat_column::kBatter, name);
    grid.SetText(row, stat_column::kPlayed, "");
    board.platform.boxes.Notify("New on the sheet: " + name);
    return;
  }
}

void MarkPlayed(Board& board, Side side, const std::string& name) {
  StatGrid& grid = SideOf(board, side).grid;
  const auto row = grid.FindRow(stat_column::kBatter, name);
  if (row && !name.empty()) grid.SetText(*row, stat_column::kPlayed, "1");
}

}  // namespace dtb
