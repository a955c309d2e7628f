#include "game/runners.h"

#include <array>

#include "game/batter_guard.h"
#include "game/gate.h"
#include "game/history.h"
#include "game/new_game.h"
#include "game/played_mark.h"

namespace dtb {

void ClickPiece(Board& board, int piece) {
  BoardState& state = board.state;
  const std::string& tag = state.pieces.at(piece).tag.value();
  if (tag.empty()) return;
  state.LastRunnerClicked = tag;
  if (!board.platform.keyboard.ControlHeld()) return;
  RecordStolenBase(board, piece);
}

void RecordStolenBase(Board& board, int piece) {
  BoardState& state = board.state;
  const std::string& tag = state.pieces.at(static_cast<std::size_t>(piece)).tag.value();
  if (tag.empty() || RefusesAfterSave(board)) return;
  const Gesture gesture(board, "SB, " + tag);
  if (!BatterIsSure(board, false)) return;
  board.counting = tag + " SB";
  state.LastRunnerClicked = tag;
  state.StolenBasePiece = piece + 1;
  StolenBase(board);
}

void StolenBase(Board& board) {
  BoardState& state = board.state;
  if (state.StolenBasePiece < 1 || !OutcomeGate(board)) return;
  const auto atBat = SideAtBat(state);
  if (!atBat) return;
  board.log.Append(state.LastRunnerClicked + "_____SB");
  ChangeOfState(board);
  StatGrid& grid = SideOf(board, *atBat).grid;
  const std::string& runner = state.pieces.at(state.StolenBasePiece - 1).tag.value();
  if (const auto row = grid.FindRow(stat_column::kBatter, runner)) {
    grid.Raise(*row, stat_column::kStolenBases);
    EventMessage(board);
  }
}

void ExplainStolenBase(Board& board) {
  board.platform.boxes.Show(
      "To record a stolen base:\n\n"
      "Hold down CTRL key, then click on the top half of the runner who stole the base.",
      BoxIcon::Information);
}

void ToggleBase(Board& board, int base) {
  constexpr std::array kBases{"first base", "second base", "third base"};
  const Gesture gesture(board, kBases.at(static_cast<std::size_t>(base)));
  Field<Colour>& colour = board.state.lbl_tracker.at(static_cast<std::size_t>(base));
  colour.Set(colour.value() == kOccupiedGreen ? kWhite : kOccupiedGreen);
}

}  // namespace dtb
