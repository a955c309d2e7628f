#include "archive/lineup_choice.h"

#include <algorithm>
#include <compare>
#include <cstdlib>
#include <map>
#include <optional>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace dtb::archive {
namespace {

using Order = std::array<Placed, kOrder>;

// How much a player played, to compare: a pitcher by his outs, others by what they did at bat.
int Played(const Man& man) {
  const Batting& batting = man.batting;
  const int atBat = batting.atBats + batting.walks + batting.hitByPitch + batting.sacrificeHits +
                    batting.sacrificeFlies;
  return man.batting.games * 4 + atBat + man.pitching.outs;
}

// All players of the club for whom `belongs` and who are not taken, who played most first.
template <class Belongs>
void AddOthers(const Club& club, LineUp& lineUp, Belongs belongs) {
  std::vector<bool> taken(club.men.size());
  for (const Placed& one : lineUp.order) {
    if (one.man != kNobody) taken[one.man] = true;
  }
  for (const auto* men : {&lineUp.bench, &lineUp.pitchers}) {
    for (const int man : *men) taken[man] = true;
  }
  std::vector<int> others;
  for (int man = 0; man < static_cast<int>(club.men.size()); ++man) {
    if (!taken[man] && belongs(man)) others.push_back(man);
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

// The last to go are those of whom the line-up itself tells.
void LeaveOut(const Club& club, LineUp& lineUp, std::size_t fixedBench, std::size_t fixedPitchers) {
  const std::size_t all = lineUp.order.size() + lineUp.bench.size() + lineUp.pitchers.size();
  if (all <= kMostMen) return;
  std::vector<std::pair<std::vector<int>*, std::size_t>> goes;
  const auto add = [&goes](std::vector<int>& men, std::size_t from, std::size_t to) {
    while (to > from) goes.emplace_back(&men, --to);
  };
  add(lineUp.pitchers, fixedPitchers, lineUp.pitchers.size());
  add(lineUp.bench, fixedBench, lineUp.bench.size());
  std::ranges::stable_sort(
      goes, {}, [&](const auto& place) { return Played(club.men[(*place.first)[place.second]]); });
  add(lineUp.bench, 0, fixedBench);
  add(lineUp.pitchers, 0, fixedPitchers);
  goes.resize(all - kMostMen);
  for (const auto& [men, place] : goes)
    lineUp.leftOut.push_back(std::exchange((*men)[place], kNobody));
  std::erase(lineUp.bench, kNobody);
  std::erase(lineUp.pitchers, kNobody);
}

// How much speaks for it that a player was with a club on a day; more first.
struct Claim {
  enum class Kind { NoGame, FewGames, Near, Between, InTheGame } kind = Kind::NoGame;
  int nearness = 0;  // days to his nearest game for the club, less than 0
  // NOLINTNEXTLINE(modernize-use-nullptr): a slip of the tool at this operator
  friend auto operator<=>(const Claim&, const Claim&) = default;
};

// Nothing if he was not with it.
std::optional<Claim> ClaimOf(const Season& season, const Club& club, const Man& man, int day) {
  const std::vector<int>& days = man.days;
  if (days.empty()) return Claim{};
  const auto after = std::ranges::lower_bound(days, day);
  int nearest = after == days.end() ? days.back() : *after;
  if (after != days.begin() && day - *std::prev(after) < std::abs(nearest - day)) {
    nearest = *std::prev(after);
  }
  const int nearness = -std::abs(nearest - day);
  if (after != days.begin() && after != days.end()) return Claim{Claim::Kind::Between, nearness};
  if (-nearness <= kNearDays) return Claim{Claim::Kind::Near, nearness};
  // Games without him say that he was elsewhere, if the archive has some.
  constexpr std::ptrdiff_t kTelling = 7;
  const auto dayOf = [&](int game) { return season.games[game].day; };
  const auto from = std::ranges::upper_bound(club.games, std::min(day, nearest), {}, dayOf);
  const auto to = std::ranges::lower_bound(club.games, std::max(day, nearest), {}, dayOf);
  if (to - from >= kTelling) return std::nullopt;
  return Claim{Claim::Kind::FewGames, nearness};
}

using Claims = std::vector<std::optional<Claim>>;  // of a club's players

Claims ClaimsOf(const Season& season, const Game& game, int side) {
  const GameSide& told = game.sides.at(side);
  const Club& club = season.clubs[told.club];
  Claims claims;
  for (const Man& man : club.men) claims.push_back(ClaimOf(season, club, man, game.day));
  const Claim there{Claim::Kind::InTheGame, 0};
  for (const Placed& one : told.order) {
    if (one.man != kNobody) claims[one.man] = there;
  }
  if (told.pitcher != kNobody) claims[told.pitcher] = there;
  for (const int man : told.came) claims[man] = there;
  return claims;
}

// A player of both clubs stays with one, unless both claims are as good.
void SettleClaims(const Season& season, const Game& game, std::array<Claims, 2>& claims) {
  const Club& visitors = season.clubs[game.sides[0].club];
  const Club& home = season.clubs[game.sides[1].club];
  std::unordered_map<std::string_view, std::size_t> places;
  for (std::size_t man = 0; man < visitors.men.size(); ++man) places[visitors.men[man].id] = man;
  for (std::size_t man = 0; man < home.men.size(); ++man) {
    const auto found = places.find(home.men[man].id);
    if (found == places.end()) continue;
    std::optional<Claim>& theirs = claims[0][found->second];
    std::optional<Claim>& ours = claims[1][man];
    if (!theirs || !ours || *theirs == *ours) continue;
    (*theirs < *ours ? theirs : ours).reset();
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

// Nine places, and no player in two of them.
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
  std::map<std::tuple<int, int, int>, int> stood;  // place, player, position
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

// Who started most games, and does not stand in the order already unless he alone has pitched.
int FirstStarter(const Club& club, const Order& order) {
  int first = 0;
  std::tuple<bool, int, int, bool> most;
  for (int man = 0; man < static_cast<int>(club.men.size()); ++man) {
    const Pitching& pitching = club.men[man].pitching;
    const bool free = std::ranges::find(order, man, &Placed::man) == order.end();
    const std::tuple value(free && pitching.games > 0, pitching.starts, pitching.outs,
                           IsPitcher(club.men[man]));
    if (man > 0 && value <= most) continue;
    first = man;
    most = value;
  }
  return first;
}

LineUp LineUpOfSide(const Season& season, const Game& game, int side, const Claims& claims) {
  const GameSide& told = game.sides.at(side);
  const Club& club = season.clubs[told.club];
  LineUp lineUp;
  lineUp.starter = told.pitcher;
  std::vector<bool> taken(club.men.size());
  const auto take = [&taken](int man) {
    const bool fresh = man != kNobody && !taken[man];
    if (fresh) taken[man] = true;
    return fresh;
  };
  for (const Placed& one : told.order) lineUp.order.push_back(take(one.man) ? one : Placed{});
  // Of nobody in the order nothing is known, not even that places are empty.
  if (std::ranges::all_of(lineUp.order, [](const Placed& one) { return one.man == kNobody; })) {
    lineUp.order.clear();
  }
  if (take(told.pitcher)) lineUp.pitchers.push_back(told.pitcher);
  for (const int man : told.pitched) {
    if (IsPitcher(club.men[man]) && take(man)) lineUp.pitchers.push_back(man);
  }
  for (const int man : told.came) {
    if (!IsPitcher(club.men[man]) && take(man)) lineUp.bench.push_back(man);
  }
  const std::size_t fixedBench = lineUp.bench.size();
  const std::size_t fixedPitchers = lineUp.pitchers.size();
  AddOthers(club, lineUp, [&](int man) { return claims[man].has_value(); });
  LeaveOut(club, lineUp, fixedBench, fixedPitchers);
  return lineUp;
}

}  // namespace

std::array<LineUp, 2> LineUpsOfGame(const Season& season, const Game& game) {
  std::array<Claims, 2> claims{ClaimsOf(season, game, 0), ClaimsOf(season, game, 1)};
  SettleClaims(season, game, claims);
  return {LineUpOfSide(season, game, 0, claims[0]), LineUpOfSide(season, game, 1, claims[1])};
}

LineUp LineUpUsedMost(const Season& season, int club) {
  std::vector<Order> used;
  for (const int game : season.clubs[club].games) {
    for (const GameSide& side : season.games[game].sides) {
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
    // A club whose pitchers are not told has none.
    const bool pitches = told.men[starter].pitching.games > 0 || IsPitcher(told.men[starter]);
    if (!bats && pitches) lineUp.pitchers.push_back(starter);
    if (pitches) lineUp.starter = starter;
    fixed = lineUp.pitchers.size();
  }
  AddOthers(told, lineUp, [](int /*man*/) { return true; });
  LeaveOut(told, lineUp, 0, fixed);
  return lineUp;
}

}  // namespace dtb::archive
