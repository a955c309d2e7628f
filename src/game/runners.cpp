#include "game/runners.h"

#include <array>

#include "game/base_running.h"
#include "game/bases.h"
#include "game/batter_guard.h"
#include "game/gate.h"
#include "game/history.h"
#include "game/new_game.h"
#include "game/outcome.h"
#include "game/play_words.h"
#include "game/played_mark.h"
#include "game/player_name.h"

namespace dtb {
namespace {

// Where the board keeps the bases, a runner steals the base in front of him, if it is free.
bool CanSteal(Board& board, const std::string& runner) {
  const BoardState& state = board.state;
  if (!KeepsBases(state)) return true;
  const int base = BaseOf(state, runner);
  const std::string name = LastNameOf(runner);
  if (base == 0) {
    board.platform.boxes.Notify(name + " is on no base, so he steals none.");
    return false;
  }
  if (IsFree(OccupiedBases(state), {base, base + 1})) return true;
  board.platform.boxes.Notify(LastNameOf(RunnerOn(state, base + 1).name) + " is on " +
                              BaseName(base + 1) + ", so " + name + " cannot steal it.");
  return false;
}

}  // namespace

void ClickPiece(Board& board, int piece) {
  BoardState& state = board.state;
  const std::string& tag = state.pieces.at(piece).tag.value();
  if (tag.empty()) return;
  state.LastRunnerClicked = tag;
  if (!board.platform.keyboard.ControlHeld()) return PutOutInstead(board, std::string(tag));
  RecordStolenBase(board, piece);
}

void RecordStolenBase(Board& board, int piece) {
  BoardState& state = board.state;
  const std::string& tag = state.pieces.at(static_cast<std::size_t>(piece)).tag.value();
  if (tag.empty() || RefusesAfterSave(board)) return;
  if (!CanSteal(board, tag)) return;
  const Gesture gesture(board, "SB, " + tag);
  if (!BatterIsSure(board, KeepsBases(state) && BaseOf(state, tag) == kThirdBase)) return;
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
  board.log.Append(state.LastRunnerClicked + std::string(LogSuffix(Outcome::StolenBase)));
  const std::string runner = state.pieces.at(state.StolenBasePiece - 1).tag.value();
  KeepPlay(board, Outcome::StolenBase, BaseOf(state, runner));
  ChangeOfState(board);
  StatGrid& grid = SideOf(board, *atBat).grid;
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
  // Where the board keeps the bases, it is the board that shows them.
  if (KeepsBases(board.state)) return;
  constexpr std::array kNames{"first base", "second base", "third base"};
  const Gesture gesture(board, kNames.at(static_cast<std::size_t>(base)));
  Field<Colour>& colour = board.state.lbl_tracker.at(static_cast<std::size_t>(base));
  colour.Set(colour.value() == kOccupiedGreen ? kWhite : kOccupiedGreen);
}

}  // namespace dtb
