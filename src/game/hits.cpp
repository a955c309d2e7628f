#include "game/hits.h"

#include "game/bases.h"
#include "game/gate.h"
#include "game/pitcher_of_record.h"
#include "game/played_mark.h"

namespace dtb {
namespace {

int BatterColumn(Outcome outcome) {
  switch (outcome) {
    case Outcome::Single:
      return stat_column::kSingles;
    case Outcome::Double:
      return stat_column::kDoubles;
    case Outcome::Triple:
      return stat_column::kTriples;
    case Outcome::Homer:
      return stat_column::kHomeRuns;
    case Outcome::Walk:
      return stat_column::kWalks;
    default:
      return stat_column::kStrikeouts;
  }
}

}  // namespace

void RecordPlateAppearance(Board& board, Outcome outcome) {
  if (!OutcomeGate(board)) return;
  LogOutcome(board, LogSuffix(outcome));
  KeepPlay(board, outcome);
  const auto atBat = SideAtBat(board.state);
  if (!atBat) return;
  StatGrid& grid = SideOf(board, *atBat).grid;
  const auto row = grid.FindRow(stat_column::kBatter, board.state.lbl_Selected.value());
  if (!row) return;
  grid.Raise(*row, BatterColumn(outcome));
  if (outcome == Outcome::Walk) {
    AssignBB(board);
  } else if (outcome == Outcome::Strikeout) {
    AssignK(board);
  } else {
    AssignHit(board);
    if (outcome == Outcome::Homer) AssignHR(board);
  }
}

void AssignHit(Board& board) {
  ChangeOfState(board);
  const auto atBat = SideAtBat(board.state);
  if (!atBat || !ChargePitcher(board, stat_column::kPitcherHits)) return;
  SideOf(board, *atBat).score.at(kTotalHits).text.Raise();
  HitRecordedMsg(board);
  AssignAtBat(board);
}

void AssignHR(Board& board) {
  ChangeOfState(board);
  ChargePitcher(board, stat_column::kPitcherHomeRuns);
}

void AssignK(Board& board) {
  ChangeOfState(board);
  if (!ChargePitcher(board, stat_column::kPitcherStrikeouts)) return;
  board.state.tb_OUT.Raise();
  OutRecordedMsg(board);
}

void AssignBB(Board& board) {
  ChangeOfState(board);
  AdvanceLineup(board);
  if (ChargePitcher(board, stat_column::kPitcherWalks)) EventMessage(board);
}

}  // namespace dtb
