#include "teams/lineup_edit.h"

#include <algorithm>

#include "base/program_error.h"
#include "game/bases.h"
#include "game/game_pieces.h"
#include "game/history.h"
#include "game/player_name.h"
#include "platform/trapped.h"
#include "teams/sheet_line.h"

namespace dtb {
namespace {

std::string SelectedPlayer(Board& board, Side side) {
  return PlayerNameOf(SideOf(board, side).list.SelectedEntry());
}

void MoveSelected(LineupList& list, int by) {
  const int row = list.selected();
  if (!list.HasRow(row) || !list.HasRow(row + by)) return;
  list.Swap(row, row + by);
  list.Select(row + by);
}

// The highlight goes to the row for as long as the box is open, and stays there; the batter does
// not change.
void ShowEntry(Board& board, LineupList& list, int row) {
  board.state.tb_ListBoxStatus.Set("1");
  list.Select(row);
  board.platform.boxes.Show(list.SelectedEntry(), BoxIcon::Exclamation);
  board.state.tb_ListBoxStatus.Set("0");
}

void DropEntry(LineupList& list, int from, bool behind) {
  const int target = list.selected();
  if (from == target || !list.HasRow(from) || !list.HasRow(target)) return;
  // Taking the entry out first shifts the target down if it lay behind; the entry then goes in
  // directly above the target, or directly below it.
  const int shifted = target > from ? target - 1 : target;
  list.Move(from, behind ? shifted + 1 : shifted);
}

}  // namespace

std::string RowKey(Board& board, Side side) {
  return std::string("row of ").append(SideOf(board, side).letter);
}

void SelectBatter(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  if (fields.edit.value() || !fields.atBat.value()) return;
  if (board.state.tb_ListBoxStatus.number() > 0 || fields.list.empty()) return;
  if (fields.list.selected() >= kStarters) return;
  Trapped(board.platform.boxes, [&] {
    LeaveTheBox(board);
    board.state.lbl_Selected.Set(PlayerNameOf(fields.list.SelectedEntry()));
    board.state.BatterOf.Set(fields.letter);
    fields.rememberedRow.Set(DecimalText(fields.list.selected()));
    fields.due.Set(fields.list.selected());
    PlaceBatterPhoto(board, board.state.lbl_Selected.value());
    GiveSheetLine(board, side, board.state.lbl_Selected.value());
  });
}

bool IsOnSheet(Board& board, Side side, int row) {
  const SideFields fields = SideOf(board, side);
  if (!fields.list.HasRow(row)) return false;
  const std::string& entry = fields.list.entries()[static_cast<std::size_t>(row)];
  return fields.grid.FindRow(stat_column::kBatter, PlayerNameOf(entry)).has_value();
}

void SelectRow(Board& board, Side side, int row) {
  const SideFields fields = SideOf(board, side);
  if (!fields.list.HasRow(row)) return;
  const std::string& entry = fields.list.entries()[static_cast<std::size_t>(row)];
  const Gesture gesture(board, "row, " + PlayerNameOf(entry), RowKey(board, side));
  fields.list.Select(row);
}

void MoveEntryUp(Board& board, Side side) {
  const Gesture gesture(board, "UP, " + SelectedPlayer(board, side));
  MoveSelected(SideOf(board, side).list, -1);
}

void MoveEntryDown(Board& board, Side side) {
  const Gesture gesture(board, "DN, " + SelectedPlayer(board, side));
  MoveSelected(SideOf(board, side).list, 1);
}

void ReplaceEntry(Board& board, Side side) {
  const Gesture gesture(board, "EDIT, " + SelectedPlayer(board, side));
  const SideFields fields = SideOf(board, side);
  if (fields.newEntry.value().empty() || !fields.list.HasRow(fields.list.selected())) return;
  fields.list.Replace(fields.list.selected(), fields.newEntry.value());
  fields.newEntry.Set("");
}

void BeginDrag(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  if (fields.edit.value()) board.state.DragSourceIndex = fields.list.selected();
}

void EndDrag(Board& board, Side side, MouseButton button, bool shiftAlone,
             std::optional<int> rowUnderPointer) {
  const SideFields fields = SideOf(board, side);
  if (button == MouseButton::Right && rowUnderPointer && fields.list.HasRow(*rowUnderPointer)) {
    const Gesture gesture(board, "row");
    ShowEntry(board, fields.list, *rowUnderPointer);
    return;
  }
  if (button != MouseButton::Left || !fields.edit.value()) return;
  const int from = board.state.DragSourceIndex;
  const std::string name = fields.list.HasRow(from)
                               ? PlayerNameOf(fields.list.entries()[static_cast<std::size_t>(from)])
                               : "";
  const Gesture gesture(board, "drag, " + name, RowKey(board, side));
  DropEntry(fields.list, from, shiftAlone);
}

}  // namespace dtb
