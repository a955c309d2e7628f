#include "game/batting_order.h"

#include <algorithm>

#include "game/history.h"
#include "game/player_name.h"

namespace dtb {
namespace {

constexpr int kLastOfOrder = kStarters - 1;

// The row of the player chosen last, also when the sides have changed.
std::optional<int> RowOfChosen(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  const std::string& batter = board.state.lbl_Selected.value();
  if (batter.empty() || board.state.BatterOf.value() != fields.letter) return std::nullopt;
  // Of two rows with one name it is the one that was chosen; a row that was moved is found again.
  if (PlayerAt(fields.list, fields.due.value()) == batter) return fields.due.value();
  for (int row = 0; row < std::min(kStarters, fields.list.size()); ++row) {
    if (PlayerAt(fields.list, row) == batter) return row;
  }
  return std::nullopt;
}

}  // namespace

int NextInOrder(const LineupList& list, int row) {
  return row == kLastOfOrder || !list.HasRow(row + 1) ? 0 : row + 1;
}

std::string PlayerAt(const LineupList& list, int row) {
  return list.HasRow(row) ? PlayerNameOf(list.entries()[static_cast<std::size_t>(row)]) : "";
}

std::optional<int> RowOfPlayer(const LineupList& list, const std::string& name) {
  for (int row = 0; row < list.size(); ++row) {
    if (PlayerAt(list, row) == name) return row;
  }
  return std::nullopt;
}

std::optional<int> RowOfBatter(Board& board, Side side) {
  return SideOf(board, side).atBat.value() ? RowOfChosen(board, side) : std::nullopt;
}

std::optional<int> RowOfBatterDue(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  if (!fields.atBat.value() || fields.list.empty() || RowOfBatter(board, side)) return std::nullopt;
  // A shorter list may have been loaded since.
  return fields.list.HasRow(fields.due.value()) ? fields.due.value() : 0;
}

int PlaceInOrder(Board& board, Side side) {
  return RowOfBatter(board, side).value_or(SideOf(board, side).due.value());
}

void ChooseBatterDue(Board& board) {
  const auto side = SideAtBat(board.state);
  if (!side) return;
  const SideFields fields = SideOf(board, *side);
  const auto due = RowOfBatterDue(board, *side);
  const int row = due.value_or(PlaceInOrder(board, *side));
  if (PlayerAt(fields.list, row).empty()) return;
  const Gesture gesture(board, "row, " + PlayerAt(fields.list, row));
  if (!due) return fields.list.Highlight(row);
  fields.edit.Set(false);
  fields.list.Select(row);
}

void RetireBatter(Board& board, bool turnIsOver) {
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board, side);
    const auto row = RowOfChosen(board, side);
    if (row) fields.due.Set(turnIsOver ? NextInOrder(fields.list, *row) : *row);
  }
  board.state.BatterOf.Set("");
}

void HighlightPlaceInOrder(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  const auto batter = RowOfBatter(board, side);
  fields.list.Highlight(batter.value_or(static_cast<int>(NumberOf(fields.rememberedRow.value()))));
}

}  // namespace dtb
