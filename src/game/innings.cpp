#include "game/innings.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/program_error.h"
#include "game/played_mark.h"
#include "platform/trapped.h"

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

void AddUp(ScoreRow& row) { row.at(kTotalRuns).text.Set(DecimalText(RunsOfInnings(row))); }

// Takes outs away from a pitcher, as many as he has; returns how many are left to be taken.
int TakeAway(PitchedOuts& outs, const std::string& pitcher, int count) {
  const auto found = outs.find(pitcher);
  if (found == outs.end()) return count;
  const int taken = std::min(count, found->second);
  found->second -= taken;
  return count - taken;
}

}  // namespace

int OutsInTheField(Board& board, Side fielding) {
  const double inProgress = board.state.tb_OUT.number();
  const bool counts = SideAtBat(board.state) == Other(fielding) && inProgress < kOutsOfHalf;
  int outs = counts ? static_cast<int>(std::max(inProgress, 0.0)) : 0;
  const ScoreRow& score = SideOf(board, Other(fielding)).score;
  for (int inning = 0; inning < kInnings; ++inning) {
    if (score.at(inning).colour.value() == kFinishedYellow) outs += kOutsOfHalf;
  }
  return outs;
}

void CountPitchedOuts(Board& board) {
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board, side);
    const std::string& pitcher = fields.pitcher.value();
    int more = OutsInTheField(board, side);
    for (const auto& [name, count] : fields.outs) more -= count;
    if (more > 0 && !pitcher.empty()) fields.outs[pitcher] += more;
    if (more >= 0) continue;
    // What is taken away is the present player's as far as he has it, then his predecessor's.
    int left = TakeAway(fields.outs, pitcher, -more);
    left = TakeAway(fields.outs, fields.pitcherTag.value(), left);
    for (const auto& [name, count] : PitchedOuts(fields.outs)) {
      left = TakeAway(fields.outs, name, left);
    }
  }
}

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
  CountPitchedOuts(board);
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
  CountPitchedOuts(board);
}

void ScoreUpdate(Board& board) {
  Trapped(board.platform.boxes, [&] {
    AddUp(board.state.tb_BoxScore);
    AddUp(board.state.tb_BoxScoreBottom);
  });
}

double RunsOfInnings(const ScoreRow& row) {
  double runs = 0;
  for (int inning = 0; inning < kInnings; ++inning) runs += row.at(inning).text.number();
  return runs;
}

double InningsPitchedBySide(Board& board, Side fielding) {
  double outs = board.state.tb_OUT.number();
  const ScoreRow& score = SideOf(board, Other(fielding)).score;
  for (int inning = 0; inning < kInnings; ++inning) {
    if (score.at(inning).colour.value() == kFinishedYellow) outs += kOutsOfHalf;
  }
  return std::round(outs / kOutsOfHalf * 100) / 100;
}

double InningsNotCredited(Board& board, Side fielding) {
  const StatGrid& grid = SideOf(board, fielding).grid;
  double credited = 0;
  for (int row = 1; row < grid.rows(); ++row) {
    credited += NumberOf(grid.Text(row, stat_column::kInningsPitched));
  }
  return InningsPitchedBySide(board, fielding) - credited;
}

void CreditInnings(Board& board, Side fielding, std::string_view pitcher) {
  StatGrid& grid = SideOf(board, fielding).grid;
  if (const auto row = grid.FindRow(stat_column::kPitcher, pitcher)) {
    grid.SetText(*row, stat_column::kInningsPitched,
                 TwoDecimals(InningsNotCredited(board, fielding)));
  }
}

void SettleForReport(Board& board, Side fielding) {
  const SideFields fields = SideOf(board, fielding);
  const auto row = fields.grid.FindRow(stat_column::kPitcher, fields.pitcher.value());
  if (!row) return;
  const std::string before(fields.grid.Text(*row, stat_column::kInningsPitched));
  CreditInnings(board, fielding, fields.pitcher.value());
  const std::string written(fields.grid.Text(*row, stat_column::kInningsPitched));
  fields.reported = {*row, written, before};
}

void TakeBackReportedInnings(Board& board) {
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board, side);
    const auto [row, written, before] = std::exchange(fields.reported, {});
    if (row == 0 || fields.grid.Text(row, stat_column::kInningsPitched) != written) continue;
    fields.grid.SetText(row, stat_column::kInningsPitched, before);
  }
}

void CalcPitcherIP(Board& board) {
  const auto atBat = SideAtBat(board.state);
  if (!atBat) return;
  const Side fielding = Other(*atBat);
  CreditInnings(board, fielding, SideOf(board, fielding).pitcherTag.value());
}

}  // namespace dtb
