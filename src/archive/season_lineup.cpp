// The line-ups of a whole season: the one used most, and the usual nine.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "archive/lineup_bench.h"
#include "archive/lineup_choice.h"

namespace dtb::archive {
namespace {

using Order = std::array<Placed, kOrder>;

// Order and positions alone: whoever pitches is the pitcher.
Order Pattern(const Order& order) {
  Order pattern = order;
  for (Placed& one : pattern) {
    if (one.position == kPitcher) one.player = kNobody;
  }
  return pattern;
}

std::vector<int> KeyOf(const Order& order) {
  std::vector<int> key;
  for (const Placed& one : order) key.insert(key.end(), {one.player, one.position});
  return key;
}

bool PitcherBats(const Order& order) {
  return std::ranges::find(order, kPitcher, &Placed::position) != order.end();
}

// Nine places, and no player in two of them.
bool Whole(const Order& order) {
  for (auto one = order.begin(); one != order.end(); ++one) {
    if (one->position == 0) return false;
    if (std::find_if(std::next(one), order.end(), [&](const Placed& other) {
          return other.player == one->player;
        }) != order.end()) {
      return false;
    }
  }
  return true;
}

// In most games.
bool PitcherBats(const std::vector<Order>& used) {
  const auto with =
      std::ranges::count_if(used, [](const Order& order) { return PitcherBats(order); });
  return with * 2 > std::ssize(used);
}

// The nine used most, with kNobody where the pitcher bats.
Order OrderUsedMost(const std::vector<Order>& used) {
  const bool pitcherBats = PitcherBats(used);
  std::map<std::vector<int>, int> times;
  std::map<std::tuple<int, int, int>, int> stood;  // place, player, position
  for (const Order& order : used) {
    if (PitcherBats(order) != pitcherBats) continue;
    ++times[KeyOf(order)];
    for (int place = 0; place < kOrder; ++place) {
      ++stood[{place, order.at(place).player, order.at(place).position}];
    }
  }
  const Order* best = nullptr;
  std::pair<int, int> most;
  for (const Order& order : used) {
    if (PitcherBats(order) != pitcherBats) continue;
    int usual = 0;
    for (int place = 0; place < kOrder; ++place) {
      usual += stood[{place, order.at(place).player, order.at(place).position}];
    }
    const std::pair value(times[KeyOf(order)], usual);
    if (best != nullptr && value <= most) continue;
    best = &order;
    most = value;
  }
  return *best;
}

// What speaks for each of several, by slots of a line-up; nothing where he can't have that one.
using Worths = std::vector<std::array<std::optional<std::int64_t>, kOrder>>;

// Who takes each of the first `slots`, nobody two of them, so that the sum of what speaks for them
// is the highest; kNobody in all of them where they can't all be filled. Among equals who comes
// first.
std::array<int, kOrder> BestForSlots(const Worths& worths, int slots) {
  constexpr std::int64_t kNone = std::numeric_limits<std::int64_t>::min();
  const std::size_t sets = std::size_t{1} << slots;
  // The best sum for each set of filled slots, and which slot the one looked at has in it.
  std::vector<std::int64_t> best(sets, kNone);
  best[0] = 0;
  std::vector<std::vector<int>> taken;
  for (const auto& worth : worths) {
    std::vector<std::int64_t> with = best;
    std::vector<int> slotOf(sets, kNobody);
    for (std::size_t set = 1; set < sets; ++set) {
      for (int slot = 0; slot < slots; ++slot) {
        const std::size_t bit = std::size_t{1} << slot;
        if ((set & bit) == 0 || !worth.at(slot) || best[set ^ bit] == kNone) continue;
        const std::int64_t sum = best[set ^ bit] + *worth.at(slot);
        if (sum <= with[set]) continue;
        with[set] = sum;
        slotOf[set] = slot;
      }
    }
    best = std::move(with);
    taken.push_back(std::move(slotOf));
  }
  std::array<int, kOrder> chosen{};
  chosen.fill(kNobody);
  std::size_t set = best.back() == kNone ? 0 : sets - 1;
  for (auto one = std::ssize(taken); set != 0 && one-- > 0;) {
    const int slot = taken[one][set];
    if (slot == kNobody) continue;
    chosen.at(slot) = static_cast<int>(one);
    set ^= std::size_t{1} << slot;
  }
  return chosen;
}

// How often each player of a club began a game at a position, and at a place of the order; the
// pitcher's places stand behind those of all players.
struct Starts {
  std::vector<std::array<int, kPositions>> at;
  std::vector<std::array<int, kOrder>> batting;
};

Starts StartsIn(const Club& club, const std::vector<Order>& used) {
  Starts starts{std::vector<std::array<int, kPositions>>(club.players.size()),
                std::vector<std::array<int, kOrder>>(club.players.size() + 1)};
  for (const Order& order : used) {
    for (int place = 0; place < kOrder; ++place) {
      const auto [player, position] = order.at(place);
      if (player != kNobody) ++starts.at[player].at(position);
      ++starts.batting[player == kNobody ? club.players.size() : player].at(place);
    }
  }
  return starts;
}

// The players of the positions from the catcher on, as many as `slots`.
std::array<int, kOrder> PlayersOfPositions(const Club& club, const Starts& starts, int slots) {
  constexpr std::int64_t kStart = 10'000;  // outweighs all games of a season
  Worths worths(club.players.size());
  for (std::size_t player = 0; player < club.players.size(); ++player) {
    for (int slot = 0; slot < slots; ++slot) {
      const int position = kPitcher + 1 + slot;
      if (starts.at[player].at(position) == 0) continue;
      worths[player].at(slot) = starts.at[player].at(position) * kStart +
                                club.players[player].batting.gamesAt.at(position);
    }
  }
  return BestForSlots(worths, slots);
}

// Thousandths of places by which one from the middle of where he batted is off.
std::int64_t OffTheMiddle(const std::array<int, kOrder>& batted, int place) {
  int times = 0;
  int sum = 0;
  for (int one = 0; one < kOrder; ++one) {
    times += batted.at(one);
    sum += batted.at(one) * one;
  }
  return times == 0 ? 0 : std::abs(std::int64_t{place} * times - sum) * 1000 / times;
}

// The usual nine, with kNobody where the pitcher bats.
Order OrderOfUsualNine(const Club& club, const std::vector<Order>& used) {
  constexpr std::int64_t kTime = 1'000'000;  // outweighs all distances
  const bool pitcherBats = PitcherBats(used);
  const Starts starts = StartsIn(club, used);
  // Catcher to right field, and the designated hitter behind them.
  const int slots = pitcherBats ? kOrder - 1 : kOrder;
  const std::array<int, kOrder> players = PlayersOfPositions(club, starts, slots);
  // Orders in which a position stands twice.
  if (players.front() == kNobody) return OrderUsedMost(used);
  Worths worths(kOrder);
  for (int one = 0; one < kOrder; ++one) {
    const auto& batted = starts.batting[one < slots ? players.at(one) : club.players.size()];
    for (int place = 0; place < kOrder; ++place) {
      worths[one].at(place) = batted.at(place) * kTime - OffTheMiddle(batted, place);
    }
  }
  Order order;
  const std::array<int, kOrder> batters = BestForSlots(worths, kOrder);
  for (int place = 0; place < kOrder; ++place) {
    const int one = batters.at(place);
    order.at(place) =
        one < slots ? Placed{players.at(one), kPitcher + 1 + one} : Placed{kNobody, kPitcher};
  }
  return order;
}

// Who started most games, and does not stand in the order already unless he alone has pitched.
int FirstStarter(const Club& club, const Order& order) {
  int first = 0;
  std::tuple<bool, int, int, bool> most;
  for (int player = 0; player < static_cast<int>(club.players.size()); ++player) {
    const Pitching& pitching = club.players[player].pitching;
    const bool free = std::ranges::find(order, player, &Placed::player) == order.end();
    const std::tuple value(free && pitching.games > 0, pitching.starts, pitching.outs,
                           IsPitcher(club.players[player]));
    if (player > 0 && value <= most) continue;
    first = player;
    most = value;
  }
  return first;
}

// All starting orders of a club that are told in full.
std::vector<Order> OrdersOf(const Season& season, int club) {
  std::vector<Order> used;
  for (const int game : season.clubs[club].games) {
    for (const GameSide& side : season.games[game].sides) {
      const Order pattern = Pattern(side.order);
      if (side.club == club && Whole(pattern)) used.push_back(pattern);
    }
  }
  return used;
}

// The nine, the first starter where the pitcher bats or before all others who pitch.
LineUp Around(const Club& club, const Order& order) {
  LineUp lineUp;
  const int starter = FirstStarter(club, order);
  bool bats = false;
  for (Placed one : order) {
    if (one.position == kPitcher) one.player = starter;
    bats = bats || one.player == starter;
    lineUp.order.push_back(one);
  }
  // A club whose pitchers are not told has none.
  const bool pitches = club.players[starter].pitching.games > 0 || IsPitcher(club.players[starter]);
  if (!bats && pitches) lineUp.pitchers.push_back(starter);
  if (pitches) lineUp.starter = starter;
  return lineUp;
}

}  // namespace

LineUp LineUpOfSeason(const Season& season, int club, SeasonNine nine) {
  const Club& told = season.clubs[club];
  const std::vector<Order> used = OrdersOf(season, club);
  LineUp lineUp;
  if (!used.empty()) {
    lineUp = Around(
        told, nine == SeasonNine::UsedMost ? OrderUsedMost(used) : OrderOfUsualNine(told, used));
  }
  AddOthers(told, lineUp, std::vector<Nearness>(told.players.size(), 0));
  return lineUp;
}

}  // namespace dtb::archive
