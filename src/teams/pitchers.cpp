#include "teams/pitchers.h"

#include "base/program_error.h"
#include "game/batting_order.h"
#include "game/game_pieces.h"
#include "game/history.h"
#include "game/innings.h"
#include "game/player_name.h"
#include "platform/trapped.h"
#include "teams/sheet_line.h"

namespace dtb {
namespace {

void GiveRow(StatGrid& grid, const std::string& name) {
  for (int row = 1; row < grid.rows(); ++row) {
    const auto text = grid.Text(row, stat_column::kPitcher);
    if (text == name) return;
    if (!text.empty()) continue;
    EnterPitcher(grid, row, name);
    return;
  }
}

}  // namespace

void EnterPitcher(StatGrid& grid, int row, const std::string& name) {
  grid.SetText(row, stat_column::kPitcher, name);
  grid.SetText(row, stat_column::kInningsPitched, "");
}

void NamePitcher(Board& board, Side side, const std::string& name) {
  const SideFields fields = SideOf(board, side);
  fields.pitcherPhoto.Set({});
  fields.pitcherTag.Set(fields.pitcher.value());
  fields.pitcher.Set(name);
  GiveRow(fields.grid, name);
  GiveSheetLine(board, side, name);
  TakeBackReportedInnings(board);
  CalcPitcherIP(board);
  // Only the highlight goes back: naming a pitcher brings nobody to bat.
  if (!fields.rememberedRow.value().empty()) HighlightPlaceInOrder(board, side);
  board.log.Append(name + "_____[current pitcher]");
}

void ChangePitcher(Board& board, Side side) {
  const LineupList& list = SideOf(board, side).list;
  if (list.SelectedEntry().empty()) return;
  Trapped(board.platform.boxes, [&] {
    const std::string name = PlayerNameOf(list.SelectedEntry());
    const Gesture gesture(board, "pitcher, " + name);
    NamePitcher(board, side, name);
  });
}

void TakeOffPitcher(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  fields.pitcherPhoto.Set({});
  fields.pitcherTag.Set("");
  fields.pitcher.Set("");
  for (int row = 1; row < fields.grid.rows(); ++row) {
    if (!fields.grid.Text(row, stat_column::kPitcher).empty()) EnterPitcher(fields.grid, row, "");
  }
}

void RefreshPitcherPhotos(Board& board) {
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board, side);
    if (fields.pitcher.value().empty()) continue;
    const auto photo = board.platform.pictures.Load(PhotoFile(board.state, fields.pitcher.value()));
    if (photo) fields.pitcherPhoto.Set(*photo);
  }
}

}  // namespace dtb
