// What the players of a game had done in their season once it was over.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "record/game_record.h"

namespace dtb {

struct PlayerToDate {
  BatterFigures batting = {};
  PitcherFigures pitching = {};
  std::map<Decision, int> decisions = {};

  [[nodiscard]] int count(Decision decision) const {
    const auto found = decisions.find(decision);
    return found == decisions.end() ? 0 : found->second;
  }
};

// By team and name: a name in two teams is two players.
class SeasonToDate {
 public:
  // Adds a game to what its players have.
  void Add(const GameRecord& game);
  // To be added to.
  [[nodiscard]] PlayerToDate& Of(const std::string& team, const std::string& name) {
    return players_[{team, name}];
  }
  // What a player has; nothing for one who is not known.
  [[nodiscard]] PlayerToDate Get(const std::string& team, const std::string& name) const;

 private:
  std::map<std::pair<std::string, std::string>, PlayerToDate> players_;
};

}  // namespace dtb
