// What each pitcher of a game came into, and what he made of it.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "record/game_record.h"

namespace dtb {

inline constexpr int kLeadOfSave = 3;  // runs (Official Baseball Rules, 9.19)

struct Outing {
  std::string pitcher = {};
  int lead = 0;     // of his side when he came in; below 0: it was behind
  int runners = 0;  // of the other side, on base when he came in
  int outs = 0;
  int earnedWhilePitching = 0;  // also of those whom others left on base
  int earned = 0;               // charged to him, whoever pitched when they scored
  int runnersAllowed = 0;       // hits, walks and whoever else reached first on his own
  bool keptLead = true;         // the score was never level while he pitched

  // On base, at bat, or on deck (9.19).
  [[nodiscard]] bool TyingRunIsNear() const { return lead <= runners + 2; }
};

// A run, in the order in which they scored.
struct RunOfGame {
  Side scoring = Side::Visitors;
  std::string pitcherOfScoring;  // who pitched last for the scoring side
  std::string pitcher;           // who is charged with the run
};

struct GameOutings {
  std::array<std::vector<Outing>, 2> sides;  // visitors, home team; the starter first
  std::vector<RunOfGame> runs;
  bool complete = false;  // the plays have all runs of both sides
  [[nodiscard]] const std::vector<Outing>& side(Side side) const {
    return sides.at(side == Side::Visitors ? 0 : 1);
  }
};

// From the plays alone: a reliever without a play has none.
[[nodiscard]] GameOutings OutingsOf(const GameRecord& game);

}  // namespace dtb
