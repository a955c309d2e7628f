#include "game/outs.h"

#include "game/gate.h"

namespace dtb {

void RecordBatterOut(Board& board, Outcome outcome) {
  if (!OutcomeGate(board)) return;
  LogOutcome(board, LogSuffix(outcome));
  board.state.tb_OUT.Raise();
  OutRecordedMsg(board);
}

void RecordDoublePlay(Board& board) {
  if (!OutcomeGate(board)) return;
  LogOutcome(board, LogSuffix(Outcome::DoublePlay));
  if (board.state.tb_OUT.number() == 2) {
    board.platform.boxes.ShowRecorded("There are already 2 outs.", BoxAlignment::Centred);
    return;
  }
  board.state.tb_OUT.Raise(2);
  OutRecordedMsg(board);
}

void RecordFieldersChoice(Board& board) {
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
  state.tb_OUT.Raise();
  LogOutcome(board, LogSuffix(Outcome::FieldersChoice));
  AssignAtBat(board);
  OutOnBasesMsg(board);
}

void RecordThrownOut(Board& board) {
  if (!OutcomeGate(board)) return;
  LogOutcome(board, LogSuffix(Outcome::ThrownOut));
  board.state.tb_OUT.Raise();
  OutOnBasesMsg(board);
  if (board.state.tb_OUT.number() != 3) return;
  EndOfInning(board);
  board.state.tb_OUT.Set("0");
}

}  // namespace dtb
