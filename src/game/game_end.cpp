#include "game/game_end.h"

#include "game/innings.h"

namespace dtb {

bool IsGameOver(const BoardState& state) {
  constexpr int kBottomOfNinth = 17;
  const int half = HalfInProgress(state);
  if (half < kBottomOfNinth) return false;
  const double visitors = RunsOfInnings(state.tb_BoxScore);
  const double home = RunsOfInnings(state.tb_BoxScoreBottom);
  const bool bottom = half % 2 == 1;
  return bottom ? home > visitors : home != visitors;
}

std::string FinalScore(const BoardState& state) {
  return "Final: " + state.tb_VisTeam.value() + ' ' +
         DecimalText(RunsOfInnings(state.tb_BoxScore)) + ", " + state.tb_HomeTeam.value() + ' ' +
         DecimalText(RunsOfInnings(state.tb_BoxScoreBottom));
}

}  // namespace dtb
