// Who won, who lost, and who saved the game.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/side.h"

namespace dtb {

struct GameRecord;

enum class Decision { Win, Loss, Save, Hold, BlownSave };
inline constexpr std::array kAllDecisions{Decision::Win, Decision::Loss, Decision::Save,
                                          Decision::Hold, Decision::BlownSave};

struct PitcherDecision {
  Side side = Side::Visitors;  // the pitcher's
  std::string pitcher = {};
  Decision decision = Decision::Win;
  friend bool operator==(const PitcherDecision&, const PitcherDecision&) = default;
};

// "W", "L", "S", "H", "BS".
[[nodiscard]] const char* DecisionCode(Decision decision);

// What the plays of a finished game say, in the order of the enumeration: winner, loser and save
// after the Official Baseball Rules, 9.17 and 9.19, holds and blown saves by custom. Where a rule
// leaves the winner to the scorer's judgement, it is proposed as its comment has it. Nothing for a
// tie, and where the plays do not add up to the runs of both sides.
[[nodiscard]] std::vector<PitcherDecision> ProposedDecisions(const GameRecord& game);

// "W: Maas, L: Law, S: Coates"; holds and blown saves behind them, each pitcher by his name. "" for
// none.
[[nodiscard]] std::string DecisionsText(const std::vector<PitcherDecision>& decisions);

}  // namespace dtb
