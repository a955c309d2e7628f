#include "game/outs.h"

#include "base/program_error.h"
#include "game/bases.h"
#include "game/batting_order.h"
#include "game/gate.h"
#include "game/history.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

// The batter's turn was cut short: he is due again.
void CloseHalf(Board& board) {
  EndOfInning(board);
  RetireBatter(board, false);
  board.state.tb_OUT.Set("0");
}

}  // namespace

void RecordBatterOut(Board& board, Outcome outcome) {
  if (!OutcomeGate(board)) return;
  LogOutcome(board, LogSuffix(outcome));
  KeepPlay(board, outcome);
  board.state.tb_OUT.Raise();
  OutRecordedMsg(board);
}

void RecordSacrifice(Board& board) {
  if (!OutcomeGate(board)) return;
  LogOutcome(board, LogSuffix(Outcome::Sacrifice));
  KeepPlay(board, Outcome::Sacrifice);
  board.state.tb_OUT.Raise();
  OutRecordedMsg(board, CountsAtBat::No);
}

void RecordDoublePlay(Board& board, int out) {
  if (!OutcomeGate(board)) return;
  LogOutcome(board, LogSuffix(Outcome::DoublePlay));
  if (board.state.tb_OUT.number() == 2) {
    board.platform.boxes.ShowRecorded("There are already 2 outs.", BoxAlignment::Centred);
    return;
  }
  KeepPlay(board, Outcome::DoublePlay, out);
  board.state.tb_OUT.Raise(2);
  OutRecordedMsg(board);
}

void RecordFieldersChoice(Board& board, int out) {
  BoardState& state = board.state;
  if (!BothTeamsLoaded(state)) return;
  if (state.tb_OUT.number() == 2) {
    board.platform.boxes.Show("FC requires < 2 outs. Use GO if it's the 3rd out.",
                              BoxIcon::Information);
    return;
  }
  if (!PitchersAndBatterChosen(state)) {
    PitcherBatterSelectWarn(board);
    return;
  }
  KeepPlay(board, Outcome::FieldersChoice, out);
  state.tb_OUT.Raise();
  LogOutcome(board, LogSuffix(Outcome::FieldersChoice));
  AssignAtBat(board);
  OutOnBasesMsg(board);
}

void RecordThrownOut(Board& board, int out) {
  if (!OutcomeGate(board)) return;
  const Runner runner = RunnerPutOutNow(board, Outcome::ThrownOut, out);
  if (runner.none()) {
    LogOutcome(board, LogSuffix(Outcome::ThrownOut));
  } else {
    board.log.Append(runner.name + std::string(LogSuffix(Outcome::ThrownOut)));
  }
  KeepPlay(board, Outcome::ThrownOut, out);
  board.state.tb_OUT.Raise();
  OutOnBasesMsg(board);
  if (board.state.tb_OUT.number() != 3) return;
  CloseHalf(board);
}

void EndHalfByHand(Board& board) {
  Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, "OUTS, 3");
    if (!board.platform.boxes.Ask({.text = "End the half-inning?", .title = "OUTS"})) return;
    board.state.tb_OUT.Set("3");
    CloseHalf(board);
  });
}

}  // namespace dtb
