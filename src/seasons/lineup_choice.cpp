#include "seasons/lineup_choice.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace dtb::seasons {
namespace {

using Order = std::array<Placed, kOrder>;

bool Contains(const std::vector<int>& men, int man) {
  return std::ranges::find(men, man) != men.end();
}

// How much a man played, to compare: a pitcher by his outs, others by what they did at bat.
int Played(const Man& man) {
  const Batting& batting = man.batting;
  const int atBat = batting.atBats + batting.walks + batting.hitByPitch + batting.sacrificeHits +
                    batting.sacrificeFlies;
  return man.batting.games * 4 + atBat + man.pitching.outs;
}

// All men of the club who are not taken, who played most first.
void AddOthers(const Club& club, LineUp& lineUp) {
  std::vector<int> others;
  for (int man = 0; man < static_cast<int>(club.men.size()); ++man) {
    const bool inOrder = std::ranges::find(lineUp.order, man, &Placed::man) != lineUp.order.end();
    if (!inOrder && !Contains(lineUp.bench, man) && !Contains(lineUp.pitchers, man)) {
      others.push_back(man);
    }
  }
  std::ranges::stable_sort(others,
                           [&](int a, int b) { return Played(club.men[a]) > Played(club.men[b]); });
  // Those who start go before those who relieve.
  const auto startsMore = [&](int a, int b) {
    return club.men[a].pitching.starts > club.men[b].pitching.starts;
  };
  std::vector<int> pitchers;
  for (const int man : others) {
    (IsPitcher(club.men[man]) ? pitchers : lineUp.bench).push_back(man);
  }
  std::ranges::stable_sort(pitchers, startsMore);
  lineUp.pitchers.insert(lineUp.pitchers.end(), pitchers.begin(), pitchers.end());
}

void LeaveOut(const Club& club, LineUp& lineUp, std::size_t fixedBench, std::size_t fixedPitchers) {
  while (lineUp.order.size() + lineUp.bench.size() + lineUp.pitchers.size() > kMostMen) {
    // The last to go are those of whom the line-up itself tells.
    std::vector<int>* from = nullptr;
    std::size_t least = 0;
    for (auto [men, fixed] :
         {std::pair(&lineUp.bench, fixedBench), std::pair(&lineUp.pitchers, fixedPitchers)}) {
      for (std::size_t i = fixed; i < men->size(); ++i) {
        if (from != nullptr && Played(club.men[(*men)[i]]) > Played(club.men[(*from)[least]])) {
          continue;
        }
        from = men;
        least = i;
      }
    }
    if (from == nullptr) {
      from = lineUp.bench.empty() ? &lineUp.pitchers : &lineUp.bench;
      least = from->size() - 1;
    }
    lineUp.leftOut.push_back((*from)[least]);
    from->erase(from->begin() + static_cast<std::ptrdiff_t>(least));
  }
}

// Order and positions alone: whoever pitches is the pitcher.
Order Pattern(const Order& order) {
  Order pattern = order;
  for (Placed& one : pattern) {
    if (one.position == kPitcher) one.man = kNobody;
  }
  return pattern;
}

std::vector<int> KeyOf(const Order& order) {
  std::vector<int> key;
  for (const Placed& one : order) key.insert(key.end(), {one.man, one.position});
  return key;
}

bool PitcherBats(const Order& order) {
  return std::ranges::find(order, kPitcher, &Placed::position) != order.end();
}

// Nine places, and no man in two of them.
bool Whole(const Order& order) {
  for (auto one = order.begin(); one != order.end(); ++one) {
    if (one->position == 0) return false;
    if (std::find_if(std::next(one), order.end(),
                     [&](const Placed& other) { return other.man == one->man; }) != order.end()) {
      return false;
    }
  }
  return true;
}

// The nine used most, with kNobody where the pitcher bats.
Order UsualOrder(const std::vector<Order>& used) {
  const auto withPitcher = static_cast<std::size_t>(std::ranges::count_if(used, PitcherBats));
  const bool pitcherBats = withPitcher * 2 > used.size();
  std::map<std::vector<int>, int> times;
  std::map<std::tuple<int, int, int>, int> stood;  // place, man, position
  for (const Order& order : used) {
    if (PitcherBats(order) != pitcherBats) continue;
    ++times[KeyOf(order)];
    for (int place = 0; place < kOrder; ++place) {
      ++stood[{place, order.at(place).man, order.at(place).position}];
    }
  }
  const Order* best = nullptr;
  std::pair<int, int> most;
  for (const Order& order : used) {
    if (PitcherBats(order) != pitcherBats) continue;
    int usual = 0;
    for (int place = 0; place < kOrder; ++place) {
      usual += stood[{place, order.at(place).man, order.at(place).position}];
    }
    const std::pair value(times[KeyOf(order)], usual);
    if (best != nullptr && value <= most) continue;
    best = &order;
    most = value;
  }
  return *best;
}

// Who started most games; none who stands in the order already, unless he alone has pitched.
int FirstStarter(const Club& club, const Order& order) {
  int first = 0;
  std::tuple<bool, int, int> most;
  for (int man = 0; man < static_cast<int>(club.men.size()); ++man) {
    const Pitching& pitching = club.men[man].pitching;
    const bool free =
        !PitcherBats(order) || std::ranges::find(order, man, &Placed::man) == order.end();
    const std::tuple value(free, pitching.starts, pitching.outs);
    if (man > 0 && value <= most) continue;
    first = man;
    most = value;
  }
  return first;
}

}  // namespace

LineUp LineUpOfGame(const Season& season, const Game& game, int side) {
  const GameSide& told = game.sides.at(side);
  const Club& club = season.clubs[told.club];
  LineUp lineUp;
  const auto inOrder = [&](int man) {
    return std::ranges::find(lineUp.order, man, &Placed::man) != lineUp.order.end();
  };
  for (const Placed& one : told.order) {
    if (one.man != kNobody && !inOrder(one.man)) lineUp.order.push_back(one);
  }
  if (told.pitcher != kNobody && !inOrder(told.pitcher)) lineUp.pitchers.push_back(told.pitcher);
  for (const int man : told.came) {
    if (inOrder(man) || man == told.pitcher) continue;
    (IsPitcher(club.men[man]) ? lineUp.pitchers : lineUp.bench).push_back(man);
  }
  const std::size_t fixedBench = lineUp.bench.size();
  const std::size_t fixedPitchers = lineUp.pitchers.size();
  AddOthers(club, lineUp);
  LeaveOut(club, lineUp, fixedBench, fixedPitchers);
  return lineUp;
}

LineUp LineUpUsedMost(const Season& season, int club) {
  std::vector<Order> used;
  for (const Game& game : season.games) {
    for (const GameSide& side : game.sides) {
      const Order pattern = Pattern(side.order);
      if (side.club == club && Whole(pattern)) used.push_back(pattern);
    }
  }
  const Club& told = season.clubs[club];
  LineUp lineUp;
  std::size_t fixed = 0;
  if (!used.empty()) {
    const Order usual = UsualOrder(used);
    const int starter = FirstStarter(told, usual);
    bool bats = false;
    for (Placed one : usual) {
      if (one.position == kPitcher) one.man = starter;
      bats = bats || one.man == starter;
      lineUp.order.push_back(one);
    }
    if (!bats) lineUp.pitchers.push_back(starter);
    fixed = lineUp.pitchers.size();
  }
  AddOthers(told, lineUp);
  LeaveOut(told, lineUp, 0, fixed);
  return lineUp;
}

}  // namespace dtb::seasons
