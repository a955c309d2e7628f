#include "sheet/cell_edit.h"

#include <string>

#include "base/program_error.h"
#include "game/history.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

// "1B, Tony Kubek"
std::string NameOfCell(const StatGrid& grid, int row, int column) {
  const int owner = column < stat_column::kPitcher ? stat_column::kBatter : stat_column::kPitcher;
  return std::string(grid.Text(0, column)).append(", ").append(grid.Text(row, owner));
}

StatGrid& EditedGrid(Board& board) {
  const SideFields visitors = SideOf(board, Side::Visitors);
  return board.sheet.lbl_GridSelected.value() == visitors.letter ? visitors.grid
                                                                 : board.sheet.grd_HomeStats;
}

}  // namespace

void BeginCellEdit(Board& board, Side side, int row, int column) {
  StatSheet& sheet = board.sheet;
  const SideFields fields = SideOf(board, side);
  const StatGrid& grid = fields.grid;
  if (row < 0 || row >= grid.rows() || column < 0 || column >= grid.columns()) return;
  if (grid.ColumnAt(column).width < 1) return;
  sheet.lbl_GridSelected.Set(fields.letter);
  sheet.editedRow = row;
  sheet.editedColumn = column;
  sheet.Text1.Set(std::string(grid.Text(row, column)));
  sheet.Text1_visible.Set(true);
}

int CommitCellEdit(Board& board) {
  StatSheet& sheet = board.sheet;
  if (!sheet.Text1_visible.value()) return sheet.editedRow;
  StatGrid& grid = EditedGrid(board);
  Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, NameOfCell(grid, sheet.editedRow, sheet.editedColumn));
    grid.SetText(sheet.editedRow, sheet.editedColumn, sheet.Text1.value());
    if (sheet.editedRow < grid.rows() - 1) ++sheet.editedRow;
  });
  sheet.Text1_visible.Set(false);
  return sheet.editedRow;
}

void DropCellEdit(Board& board) { board.sheet.Text1_visible.Set(false); }

bool TellFigureBeingTyped(Board& board) {
  const StatSheet& sheet = board.sheet;
  if (!sheet.Text1_visible.value()) return false;
  if (EditedGrid(board).Text(sheet.editedRow, sheet.editedColumn) == sheet.Text1.value()) {
    DropCellEdit(board);
    return false;
  }
  board.platform.boxes.Show(
      "A figure is still being typed. "
      "Press Enter to enter it, or Esc to leave the cell as it was, "
      "and then press the button again.",
      BoxIcon::Information);
  return true;
}

void ClearCell(Board& board, Side side, int row, int column) {
  Trapped(board.platform.boxes, [&] {
    StatGrid& grid = SideOf(board, side).grid;
    const Gesture gesture(board, NameOfCell(grid, row, column));
    grid.SetText(row, column, "");
  });
}

}  // namespace dtb
