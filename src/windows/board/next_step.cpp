#include "windows/board/next_step.h"

#include <QTimer>

#include "game/base_running.h"
#include "game/batting_order.h"
#include "game/history.h"
#include "game/outcomes.h"
#include "windows/shared/bind.h"

namespace dtb {

Step NextStepOf(Board& board) {
  const BoardState& state = board.state;
  if (state.List1.empty()) return Step::LoadVisitors;
  if (state.List2.empty()) return Step::LoadHome;
  if (state.lbl_VisPitcher.value().empty()) return Step::VisitorsPitcher;
  if (state.lbl_HomePitcher.value().empty()) return Step::HomePitcher;
  const auto side = SideAtBat(state);
  if (!side) return Step::AtBat;
  const bool played = HalfInProgress(state) > 0 || state.tb_OUT.number() > 0;
  return played || RowOfBatter(board, *side) ? Step::None : Step::FirstBatter;
}

NextStep::NextStep(Board& board, QObject* parent)
    : QObject(parent), board_(board), step_(NextStepOf(board)) {
  const auto follow = [this](auto&... fields) {
    (fields.Observe([this] { Refresh(); }, WhileItLives(this)), ...);
  };
  BoardState& state = board.state;
  follow(state.lbl_VisPitcher, state.lbl_HomePitcher, state.lbl_Selected, state.BatterOf,
         state.Option5, state.Option6, state.VisDue, state.HomeDue, state.tb_OUT,
         state.tb_OutsCount);
  if (board.history != nullptr) follow(*board.history);
}

void NextStep::Refresh() {
  const Step step = NextStepOf(board_);
  if (step == step_) return;
  step_ = step;
  flashes_ = false;
  emit changed();
}

void NextStep::Record(Outcome outcome) {
  if (AsksWhoIsOut(board_, outcome)) return emit runnerWanted();
  const Step missing = step_;
  // An at-bat, for one, is counted without pitchers.
  const std::string before = missing == Step::None ? "" : GameText(board_);
  emit recording();
  RecordOutcome(board_, outcome);
  emit recorded();
  if (missing != Step::None && Is(missing) && GameText(board_) == before) Flash();
}

void NextStep::Flash() {
  constexpr int kFlash = 700;  // milliseconds
  flashes_ = true;
  emit changed();
  QTimer::singleShot(kFlash, this, [this, number = ++flash_] {
    if (number != flash_) return;  // a later one lasts
    flashes_ = false;
    emit changed();
  });
}

}  // namespace dtb
