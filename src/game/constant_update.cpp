#include "game/constant_update.h"

#include "base/program_error.h"
#include "game/innings.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

constexpr int kInningWidth = 350;  // twentieths of a point
constexpr int kFirstHiddenInning = 9;

}  // namespace

void CopyLineScore(Board& board) {
  StatGrid& grid = board.sheet.grd_BoxScore;
  for (int cell = kFirstHiddenInning; cell <= kTotalHits; ++cell) {
    const bool played = !board.state.tb_BoxScore.at(cell).text.value().empty();
    grid.SetColumnWidth(cell + 1, played ? kInningWidth : 0);
  }
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board, side);
    for (int cell = 0; cell < kScoreCells; ++cell) {
      grid.SetText(fields.boxScoreRow, cell + 1, fields.score.at(cell).text.value());
    }
  }
}

void ConstantUpdate(Board& board) {
  Trapped(board.platform.boxes, [&] {
    ScoreUpdate(board);
    CopyLineScore(board);
  });
}

}  // namespace dtb
