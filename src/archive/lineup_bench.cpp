#include "archive/lineup_bench.h"

#include <algorithm>
#include <utility>

namespace dtb::archive {
namespace {

// How much a player played, to compare: a pitcher by his outs, others by what they did at bat.
int Played(const Player& player) {
  return player.batting.games * 4 + PlateAppearances(player.batting) + player.pitching.outs;
}

std::vector<int> Others(const Club& club, const LineUp& lineUp,
                        const std::vector<Nearness>& nearness) {
  std::vector<bool> taken(club.players.size());
  for (const Placed& one : lineUp.order) {
    if (one.player != kNobody) taken[one.player] = true;
  }
  for (const auto* players : {&lineUp.bench, &lineUp.pitchers}) {
    for (const int player : *players) taken[player] = true;
  }
  std::vector<int> others;
  for (int player = 0; player < static_cast<int>(club.players.size()); ++player) {
    if (!taken[player] && nearness[player]) others.push_back(player);
  }
  std::ranges::stable_sort(others, std::ranges::greater(),
                           [&](int player) { return Played(club.players[player]); });
  return others;
}

// The last to go are the first `bench` and `pitchers`.
void LeaveOut(const Club& club, LineUp& lineUp, const std::vector<Nearness>& nearness,
              std::size_t bench, std::size_t pitchers) {
  const std::size_t all = lineUp.order.size() + lineUp.bench.size() + lineUp.pitchers.size();
  if (all <= kMostPlayers) return;
  std::vector<std::pair<std::vector<int>*, std::size_t>> goes;
  const auto add = [&goes](std::vector<int>& players, std::size_t from, std::size_t to) {
    while (to > from) goes.emplace_back(&players, --to);
  };
  add(lineUp.pitchers, pitchers, lineUp.pitchers.size());
  add(lineUp.bench, bench, lineUp.bench.size());
  std::ranges::stable_sort(goes, {}, [&](const auto& place) {
    const int player = (*place.first)[place.second];
    return std::pair(nearness[player].value(), Played(club.players[player]));
  });
  add(lineUp.bench, 0, bench);
  add(lineUp.pitchers, 0, pitchers);
  goes.resize(all - kMostPlayers);
  for (const auto& [players, place] : goes) {
    lineUp.leftOut.push_back(std::exchange((*players)[place], kNobody));
  }
  std::erase(lineUp.bench, kNobody);
  std::erase(lineUp.pitchers, kNobody);
}

}  // namespace

void AddOthers(const Club& club, LineUp& lineUp, const std::vector<Nearness>& nearness) {
  const std::size_t bench = lineUp.bench.size();
  const std::size_t told = lineUp.pitchers.size();
  std::vector<int> pitchers;
  for (const int player : Others(club, lineUp, nearness)) {
    (IsPitcher(club.players[player]) ? pitchers : lineUp.bench).push_back(player);
  }
  std::ranges::stable_sort(pitchers, std::ranges::greater(),
                           [&](int player) { return club.players[player].pitching.starts; });
  lineUp.pitchers.insert(lineUp.pitchers.end(), pitchers.begin(), pitchers.end());
  LeaveOut(club, lineUp, nearness, bench, told);
}

}  // namespace dtb::archive
