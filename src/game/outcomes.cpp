#include "game/outcomes.h"

#include "base/program_error.h"
#include "game/bases.h"
#include "game/batter_guard.h"
#include "game/gate.h"
#include "game/history.h"
#include "game/hits.h"
#include "game/new_game.h"
#include "game/outs.h"
#include "game/played_mark.h"
#include "game/runs.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

// For a batter who reached on an error and the like. Asks for no pitchers.
void RecordAtBat(Board& board) {
  if (!BothTeamsLoaded(board.state)) return;
  if (board.state.lbl_Selected.value().empty()) return PitcherBatterSelectWarn(board);
  LogOutcome(board, LogSuffix(Outcome::AtBat));
  KeepPlay(board, Outcome::AtBat);
  AssignAtBat(board);
  AtBatRecordedMsg(board);
}

// A batter who is hit by a pitch, or interfered with, counts no time at bat.
void RecordTakesFirst(Board& board) {
  if (!OutcomeGate(board)) return;
  LogOutcome(board, LogSuffix(Outcome::TakesFirst));
  KeepPlay(board, Outcome::TakesFirst);
  ChangeOfState(board);
  AdvanceLineup(board);
  TakesFirstMsg(board);
}

void Record(Board& board, Outcome outcome, int out) {
  switch (outcome) {
    case Outcome::Single:
    case Outcome::Double:
    case Outcome::Triple:
    case Outcome::Homer:
    case Outcome::Walk:
    case Outcome::Strikeout:
      RecordPlateAppearance(board, outcome);
      break;
    case Outcome::Groundout:
    case Outcome::Flyout:
    case Outcome::Lineout:
    case Outcome::Popout:
      RecordBatterOut(board, outcome);
      break;
    case Outcome::DoublePlay:
      RecordDoublePlay(board, out);
      break;
    case Outcome::FieldersChoice:
      RecordFieldersChoice(board, out);
      break;
    case Outcome::ThrownOut:
      RecordThrownOut(board, out);
      break;
    case Outcome::AtBat:
      RecordAtBat(board);
      break;
    case Outcome::RunBattedIn:
      RecordRun(board);
      break;
    case Outcome::TakesFirst:
      RecordTakesFirst(board);
      break;
    case Outcome::Sacrifice:
      RecordSacrifice(board);
      break;
    case Outcome::StolenBase:
    case Outcome::Advance:
    case Outcome::PutOnBase:
      break;  // gestures of a runner, see base_running.h
  }
}

// Where the board keeps the bases, nobody is put out on empty ones.
bool LacksRunner(Board& board, Outcome outcome) {
  const BoardState& state = board.state;
  return KeepsBases(state) && PutsRunnerOut(outcome) && BothTeamsLoaded(state) &&
         PitchersAndBatterChosen(state) && !AnyoneOn(state);
}

// Runs go into the line of the half-inning in progress.
bool MayScore(const BoardState& state, Outcome outcome) {
  return outcome == Outcome::RunBattedIn ||
         (KeepsBases(state) && (outcome == Outcome::Homer || AnyoneOn(state)));
}

}  // namespace

void RecordOutcome(Board& board, Outcome outcome, int out) {
  if (RefusesAfterSave(board)) return;
  if (out > 0 && RunnerOn(board.state, out).none()) out = 0;
  if (LacksRunner(board, outcome)) {
    board.platform.boxes.Show(
        "The board has nobody on base who could be out. Drag a runner's piece to his base first.",
        BoxIcon::Exclamation);
    return;
  }
  const std::size_t playsBefore = board.state.plays.size();
  Trapped(board.platform.boxes, [&] {
    const std::string code(OutcomeCode(outcome));
    const std::string& batter = board.state.lbl_Selected.value();
    Gesture gesture(board, code + ", " + batter);
    if (!BatterIsSure(board, MayScore(board.state, outcome))) return;
    const Runner runner =
        outcome == Outcome::ThrownOut ? RunnerPutOutNow(board, outcome, out) : Runner{};
    gesture.SetName(code + ", " + (runner.none() ? batter : runner.name));
    // Without the bases the board does not know which runner was thrown out.
    board.counting =
        outcome == Outcome::ThrownOut ? code + " while " + batter + " bats" : batter + ' ' + code;
    Record(board, outcome, out);
    // Known before the history tells of the step, which ends here.
    const bool chose = PutsRunnerOut(outcome) && board.state.plays.size() == playsBefore + 1;
    const std::size_t steps = board.history == nullptr ? 0 : board.history->steps() + 1;
    board.choice = chose ? RunnerChoice{steps, playsBefore + 1} : RunnerChoice{};
  });
}

}  // namespace dtb
