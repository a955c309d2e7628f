#include "game/runs.h"

#include "game/bases.h"
#include "game/gate.h"
#include "game/innings.h"
#include "game/outcome.h"
#include "game/pitcher_of_record.h"
#include "game/played_mark.h"

namespace dtb {

void RecordRun(Board& board) {
  if (!OutcomeGate(board)) return;
  BoardState& state = board.state;
  KeepPlay(board, Outcome::RunBattedIn);
  const int half = HalfInProgress(state);
  if (half < kHalves) Cell(state, half).text.Raise();
  ScoreUpdate(board);
  LogOutcome(board, LogSuffix(Outcome::RunBattedIn));
  const auto atBat = SideAtBat(state);
  if (!atBat) return;
  StatGrid& grid = SideOf(board, *atBat).grid;
  const auto row = grid.FindRow(stat_column::kBatter, state.lbl_Selected.value());
  if (!row) return;
  grid.Raise(*row, stat_column::kRunsBattedIn);
  AssignER(board);
  EventMessage(board);
}

void AssignER(Board& board) {
  ChangeOfState(board);
  ChargePitcher(board, stat_column::kEarnedRuns);
}

}  // namespace dtb
