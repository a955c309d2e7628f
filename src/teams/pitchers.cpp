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

void ChangePitcher(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  if (fields.list.SelectedEntry().empty()) return;
  Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, "pitcher, " + PlayerNameOf(fields.list.SelectedEntry()));
    fields.pitcherPhoto.Set({});
    fields.pitcherTag.Set(fields.pitcher.value());
    fields.pitcher.Set(PlayerNameOf(fields.list.SelectedEntry()));
    GiveRow(fields.grid, fields.pitcher.value());
    GiveSheetLine(board, side, fields.pitcher.value());
    TakeBackReportedInnings(board);
    CalcPitcherIP(board);
    // Only the highlight goes back: naming a pitcher brings nobody to bat.
    if (!fields.rememberedRow.value().empty()) HighlightPlaceInOrder(board, side);
    board.log.Append(fields.pitcher.value() + "_____[current pitcher]");
  });
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
