#include "record/season_to_date.h"

namespace dtb {

void SeasonToDate::Add(const GameRecord& game) {
  for (const SideRecord& side : game.sides) {
    for (const BatterRecord& batter : side.batters) {
      Of(side.team, batter.name).batting += batter.figures;
    }
    for (const PitcherRecord& pitcher : side.pitchers) {
      Of(side.team, pitcher.name).pitching += pitcher.figures;
    }
  }
  for (const PitcherDecision& one : game.decisions) {
    ++Of(game.side(one.side).team, one.pitcher).decisions[one.decision];
  }
}

PlayerToDate SeasonToDate::Get(const std::string& team, const std::string& name) const {
  const auto found = players_.find({team, name});
  return found == players_.end() ? PlayerToDate{} : found->second;
}

}  // namespace dtb
