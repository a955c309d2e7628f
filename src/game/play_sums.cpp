#include "game/play_sums.h"

#include <algorithm>

#include "game/game_end.h"

namespace dtb {
namespace {

bool IsOf(const Play& play, Side batting) {
  return (play.half % 2 == 0) == (batting == Side::Visitors);
}

int OnBase(const Play& play) {
  return static_cast<int>(
      std::ranges::count_if(play.after, [](const std::string& name) { return !name.empty(); }));
}

}  // namespace

PlaySums SumsOf(const Board& board, Side batting) {
  const BoardState& state = board.state;
  PlaySums sums;
  for (const Play& play : state.plays.All()) {
    if (!IsOf(play, batting)) continue;
    const int runs = RunsOf(play);
    sums.total += runs;
    if (play.half < kHalves) sums.innings.at(static_cast<std::size_t>(play.half / 2)) += runs;
    for (const Move& move : play.moves) {
      if (move.to != kHomePlate) continue;
      ++sums.runs[move.name];
      ++sums.charged[move.pitcher];
    }
    if (play.outcome == Outcome::RunBattedIn) ++sums.charged[play.pitcher];
  }
  const bool saved = !board.sheet.Command2_enabled.value();
  const bool over = saved || IsGameOver(state);
  for (const HalfSums& half : HalvesOf(state)) {
    const bool finished = half.half < HalfInProgress(state) || over;
    if ((half.half % 2 == 0) == (batting == Side::Visitors) && finished) {
      sums.leftOnBase += half.left;
    }
  }
  return sums;
}

bool EndsTimeAtBat(Outcome outcome) {
  switch (outcome) {
    case Outcome::ThrownOut:
    case Outcome::RunBattedIn:
    case Outcome::StolenBase:
    case Outcome::Advance:
      return false;
    default:
      return true;  // a runner from the bench has his place of a batter, too
  }
}

std::vector<HalfSums> HalvesOf(const BoardState& state) { return HalvesOf(state.plays.All()); }

std::vector<HalfSums> HalvesOf(std::span<const Play> plays) {
  std::vector<HalfSums> halves;
  for (const Play& play : plays) {
    if (halves.empty() || halves.back().half != play.half) halves.push_back({.half = play.half});
    HalfSums& sums = halves.back();
    sums.cameUp += EndsTimeAtBat(play.outcome) ? 1 : 0;
    sums.outs += OutsOf(play);
    sums.runs += static_cast<int>(std::ranges::count(play.moves, kHomePlate, &Move::to));
    sums.left = OnBase(play);
    sums.basesKept = sums.basesKept && play.basesKept;
  }
  return halves;
}

}  // namespace dtb
