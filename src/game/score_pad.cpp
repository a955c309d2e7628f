#include "game/score_pad.h"

#include "base/program_error.h"
#include "game/constant_update.h"
#include "game/history.h"
#include "game/innings.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

constexpr std::size_t kMostDigits = 2;  // of the runs of one inning

// The name of the cell that last had the focus.
std::string FocusedCell(const BoardState& state) {
  return state.lbl_VisHome.value() + state.lbl_BoxSel.value();
}

}  // namespace

void FocusScoreCell(Board& board, Side side, int cell) {
  board.state.lbl_BoxSel.Set(DecimalText(cell));
  board.state.lbl_VisHome.Set(SideOf(board, side).letter);
  board.state.EnteredCell.clear();
  ConstantUpdate(board);
}

void MoveCaret(Board& board, bool toStart) {
  if (toStart == CaretAtStart(board.state)) return;
  board.state.EnteredCell = toStart ? "" : FocusedCell(board.state);
}

bool CaretAtStart(const BoardState& state) { return state.EnteredCell != FocusedCell(state); }

void ClickDigit(Board& board, const std::string& digit) {
  Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, "score pad, " + digit);
    board.state.lbl_NumSel.Set(digit);
    PutValue(board);
  });
}

void PutValue(Board& board) {
  BoardState& state = board.state;
  if (state.lbl_BoxSel.value().empty()) return;
  const auto cell = static_cast<std::size_t>(NumberOf(state.lbl_BoxSel.value()));
  const std::string& digit = state.lbl_NumSel.value();
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board, side);
    if (state.lbl_VisHome.value() != fields.letter) continue;
    TextCell& text = fields.score.at(cell).text;
    const std::string figure = CaretAtStart(state) ? digit : text.value() + digit;
    if (cell < kInnings && figure.size() > kMostDigits) continue;
    MoveCaret(board, false);
    text.Set(figure);
  }
}

void ToggleFinished(Board& board, Side side, int cell) {
  if (cell < 0 || cell >= kInnings) return;
  const Gesture gesture(board, "mark of inning " + DecimalText(cell + 1));
  Field<Colour>& colour = SideOf(board, side).score.at(cell).colour;
  colour.Set(colour.value() == kFinishedYellow ? kGrey : kFinishedYellow);
  CountPitchedOuts(board);
}

}  // namespace dtb
