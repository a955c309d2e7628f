#include "game/played_mark.h"

namespace dtb {

void ChangeOfState(Board& board) {
  const std::string& name = board.state.pieces.front().tag.value();
  for (StatGrid* grid : {&board.sheet.grd_VisStats, &board.sheet.grd_HomeStats}) {
    const auto row = grid->FindRow(stat_column::kBatter, name);
    if (!row) continue;
    if (!name.empty()) grid->SetText(*row, stat_column::kPlayed, "1");
    return;
  }
}

}  // namespace dtb
