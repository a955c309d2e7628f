#include "game/innings.h"

#include <cmath>

#include "game/played_mark.h"
#include "shell/program_error.h"

namespace dtb {
namespace {

void ChangeSides(Board& board) {
  if (const auto atBat = SideAtBat(board.state)) PutAtBat(board, Other(*atBat));
}

void MarkLastFinishedHalf(BoardState& state) {
  const double outs = state.tb_OutsCount.number();
  for (int k = 0; k < kHalves; ++k) {
    if (outs != 3 * (k + 1)) continue;
    ScoreCell& cell = Cell(state, k);
    cell.colour.Set(kFinishedYellow);
    if (cell.text.value().empty()) cell.text.Set("0");
  }
}

void AddUp(ScoreRow& row) {
  double runs = 0;
  for (int inning = 0; inning < kInnings; ++inning) runs += row.at(inning).text.number();
  row.at(kTotalRuns).text.Set(DecimalText(runs));
}

}  // namespace

void OutsChanged(Board& board) {
  BoardState& state = board.state;
  ChangeOfState(board);
  if (state.tb_OutsCount.number() == kMostOuts) {
    board.platform.boxes.Show("Maximum INNINGS reached. Use manual scoring to complete game.",
                              BoxIcon::Information);
    return;
  }
  if (state.tb_OUT.number() >= 3 && state.tb_OUT.value() != "3") {
    state.tb_OUT.Set("3");  // runs this rule once more, which ends the half: once
    return;
  }
  const bool thirdOut = state.tb_OUT.value() == "3";
  if (thirdOut) state.tb_OutsCount.Raise(3);
  MarkLastFinishedHalf(state);
  if (thirdOut) ChangeSides(board);
}

void OutsCountChanged(Board& board) {
  BoardState& state = board.state;
  const auto number = WholeNumberOf(state.tb_OutsCount.value());
  if (!number) {
    board.platform.boxes.Show("Only numbers 0 and higher are allowed. An error has occurred.",
                              BoxIcon::Warning);
    return;
  }
  if (*number < 0) {
    state.tb_OutsCount.Set("0");  // runs this rule once more, for the 0
    return;
  }
  for (int k = 0; k < kHalves; ++k) {
    Cell(state, k).colour.Set(*number > 3 * k + 2 ? kFinishedYellow : kGrey);
  }
}

void ScoreUpdate(Board& board) {
  Trapped(board.platform.boxes, [&] {
    AddUp(board.state.tb_BoxScore);
    AddUp(board.state.tb_BoxScoreBottom);
  });
}

double InningsNotCredited(Board& board, Side fielding) {
  double outs = board.state.tb_OUT.number();
  const ScoreRow& score = SideOf(board, Other(fielding)).score;
  for (int inning = 0; inning < kInnings; ++inning) {
    if (score.at(inning).colour.value() == kFinishedYellow) outs += 3;
  }
  const StatGrid& grid = SideOf(board, fielding).grid;
  double credited = 0;
  for (int row = 1; row < grid.rows(); ++row) {
    credited += NumberOf(grid.Text(row, stat_column::kInningsPitched));
  }
  return std::round(outs / 3 * 100) / 100 - credited;
}

void CreditInnings(Board& board, Side fielding, std::string_view pitcher) {
  StatGrid& grid = SideOf(board, fielding).grid;
  if (const auto row = grid.FindRow(stat_column::kPitcher, pitcher)) {
    grid.SetText(*row, stat_column::kInningsPitched,
                 TwoDecimals(InningsNotCredited(board, fielding)));
  }
}

void CalcPitcherIP(Board& board) {
  const auto atBat = SideAtBat(board.state);
  if (!atBat) return;
  const Side fielding = Other(*atBat);
  CreditInnings(board, fielding, SideOf(board, fielding).pitcherTag.value());
}

}  // namespace dtb
