#include "game/game_end.h"

#include "game/innings.h"

namespace dtb {

bool IsGameOver(const BoardState& state) {
  constexpr int kBottomOfNinth = 17;
  const int half = HalfInProgress(state);
  if (half < kBottomOfNinth) return false;
  const double visitors = RunsOfInnings(state.tb_BoxScore);
  const double home = RunsOfInnings(state.tb_BoxScoreBottom);
  if (half % 2 == 1) return home > visitors;
  // Runs of an inning that has begun do not end the game before its bottom.
  const double begun = half < kHalves ? state.tb_BoxScore.at(half / 2).text.number() : 0;
  return home != visitors - begun;
}

std::string FinalScore(const BoardState& state) {
  return "Final: " + state.tb_VisTeam.value() + ' ' +
         DecimalText(RunsOfInnings(state.tb_BoxScore)) + ", " + state.tb_HomeTeam.value() + ' ' +
         DecimalText(RunsOfInnings(state.tb_BoxScoreBottom));
}

}  // namespace dtb
