#include "archive/lineup_bench.h"

#include <algorithm>
#include <utility>

namespace dtb::archive {
namespace {

// How much a player played, to compare: a pitcher by his outs, others by what they did at bat.
int Played(const Man& man) {
  return man.batting.games * 4 + PlateAppearances(man.batting) + man.pitching.outs;
}

std::vector<int> Others(const Club& club, const LineUp& lineUp,
                        const std::vector<Nearness>& nearness) {
  std::vector<bool> taken(club.men.size());
  for (const Placed& one : lineUp.order) {
    if (one.man != kNobody) taken[one.man] = true;
  }
  for (const auto* men : {&lineUp.bench, &lineUp.pitchers}) {
    for (const int man : *men) taken[man] = true;
  }
  std::vector<int> others;
  for (int man = 0; man < static_cast<int>(club.men.size()); ++man) {
    if (!taken[man] && nearness[man]) others.push_back(man);
  }
  std::ranges::stable_sort(others, std::ranges::greater(),
                           [&](int man) { return Played(club.men[man]); });
  return others;
}

// The last to go are the first `bench` and `pitchers`.
void LeaveOut(const Club& club, LineUp& lineUp, const std::vector<Nearness>& nearness,
              std::size_t bench, std::size_t pitchers) {
  const std::size_t all = lineUp.order.size() + lineUp.bench.size() + lineUp.pitchers.size();
  if (all <= kMostMen) return;
  std::vector<std::pair<std::vector<int>*, std::size_t>> goes;
  const auto add = [&goes](std::vector<int>& men, std::size_t from, std::size_t to) {
    while (to > from) goes.emplace_back(&men, --to);
  };
  add(lineUp.pitchers, pitchers, lineUp.pitchers.size());
  add(lineUp.bench, bench, lineUp.bench.size());
  std::ranges::stable_sort(goes, {}, [&](const auto& place) {
    const int man = (*place.first)[place.second];
    return std::pair(nearness[man].value(), Played(club.men[man]));
  });
  add(lineUp.bench, 0, bench);
  add(lineUp.pitchers, 0, pitchers);
  goes.resize(all - kMostMen);
  for (const auto& [men, place] : goes)
    lineUp.leftOut.push_back(std::exchange((*men)[place], kNobody));
  std::erase(lineUp.bench, kNobody);
  std::erase(lineUp.pitchers, kNobody);
}

}  // namespace

void AddOthers(const Club& club, LineUp& lineUp, const std::vector<Nearness>& nearness) {
  const std::size_t bench = lineUp.bench.size();
  const std::size_t told = lineUp.pitchers.size();
  std::vector<int> pitchers;
  for (const int man : Others(club, lineUp, nearness)) {
    (IsPitcher(club.men[man]) ? pitchers : lineUp.bench).push_back(man);
  }
  std::ranges::stable_sort(pitchers, std::ranges::greater(),
                           [&](int man) { return club.men[man].pitching.starts; });
  lineUp.pitchers.insert(lineUp.pitchers.end(), pitchers.begin(), pitchers.end());
  LeaveOut(club, lineUp, nearness, bench, told);
}

}  // namespace dtb::archive
