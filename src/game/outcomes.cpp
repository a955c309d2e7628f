#include "game/outcomes.h"

#include "base/program_error.h"
#include "game/batter_guard.h"
#include "game/gate.h"
#include "game/history.h"
#include "game/hits.h"
#include "game/new_game.h"
#include "game/outs.h"
#include "game/runs.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

// For a batter who reached on an error and the like. Asks for no pitchers.
void RecordAtBat(Board& board) {
  if (!BothTeamsLoaded(board.state)) return;
  if (board.state.lbl_Selected.value().empty()) return PitcherBatterSelectWarn(board);
  LogOutcome(board, LogSuffix(Outcome::AtBat));
  AssignAtBat(board);
  AtBatRecordedMsg(board);
}

void Record(Board& board, Outcome outcome) {
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
      RecordDoublePlay(board);
      break;
    case Outcome::FieldersChoice:
      RecordFieldersChoice(board);
      break;
    case Outcome::ThrownOut:
      RecordThrownOut(board);
      break;
    case Outcome::AtBat:
      RecordAtBat(board);
      break;
    case Outcome::RunBattedIn:
      RecordRun(board);
      break;
  }
}

}  // namespace

void RecordOutcome(Board& board, Outcome outcome) {
  if (RefusesAfterSave(board)) return;
  Trapped(board.platform.boxes, [&] {
    const std::string code(OutcomeCode(outcome));
    const std::string& batter = board.state.lbl_Selected.value();
    Gesture gesture(board, code + ", " + batter);
    if (!BatterIsSure(board, outcome == Outcome::RunBattedIn)) return;
    gesture.SetName(code + ", " + batter);
    // The board does not know which runner was thrown out.
    board.counting =
        outcome == Outcome::ThrownOut ? code + " while " + batter + " bats" : batter + ' ' + code;
    Record(board, outcome);
  });
}

}  // namespace dtb
