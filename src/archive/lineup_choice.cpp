#include "archive/lineup_choice.h"

#include <algorithm>
#include <compare>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "archive/lineup_bench.h"

namespace dtb::archive {
namespace {

// How much speaks for it that a player was with a club on a day; more first.
struct Claim {
  enum class Kind { NoGame, FewGames, Near, Between, InTheGame } kind = Kind::NoGame;
  int nearness = 0;  // days to his nearest game for the club, less than 0
  // NOLINTNEXTLINE(modernize-use-nullptr): a slip of the tool at this operator
  friend auto operator<=>(const Claim&, const Claim&) = default;
};

// Nothing if he was not with it.
std::optional<Claim> ClaimOf(const Season& season, const Club& club, const Player& player,
                             int day) {
  const std::vector<int>& days = player.days;
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
  for (const Player& player : club.players) {
    claims.push_back(ClaimOf(season, club, player, game.day));
  }
  const Claim there{Claim::Kind::InTheGame, 0};
  for (const Placed& one : told.order) {
    if (one.player != kNobody) claims[one.player] = there;
  }
  if (told.pitcher != kNobody) claims[told.pitcher] = there;
  for (const int player : told.came) claims[player] = there;
  return claims;
}

// A player of both clubs stays with one, unless both claims are as good.
void SettleClaims(const Season& season, const Game& game, std::array<Claims, 2>& claims) {
  const Club& visitors = season.clubs[game.sides[0].club];
  const Club& home = season.clubs[game.sides[1].club];
  std::unordered_map<std::string_view, std::size_t> places;
  for (std::size_t player = 0; player < visitors.players.size(); ++player) {
    places[visitors.players[player].id] = player;
  }
  for (std::size_t player = 0; player < home.players.size(); ++player) {
    const auto found = places.find(home.players[player].id);
    if (found == places.end()) continue;
    std::optional<Claim>& theirs = claims[0][found->second];
    std::optional<Claim>& ours = claims[1][player];
    if (!theirs || !ours || *theirs == *ours) continue;
    (*theirs < *ours ? theirs : ours).reset();
  }
}

int NearnessOf(const Claim& claim) {
  return claim.kind == Claim::Kind::NoGame ? kNeverInAGame : claim.nearness;
}

LineUp LineUpOfSide(const Season& season, const Game& game, int side, const Claims& claims) {
  const GameSide& told = game.sides.at(side);
  const Club& club = season.clubs[told.club];
  LineUp lineUp;
  lineUp.starter = told.pitcher;
  std::vector<bool> taken(club.players.size());
  const auto take = [&taken](int player) {
    const bool fresh = player != kNobody && !taken[player];
    if (fresh) taken[player] = true;
    return fresh;
  };
  for (const Placed& one : told.order) lineUp.order.push_back(take(one.player) ? one : Placed{});
  // Of nobody in the order nothing is known, not even that places are empty.
  if (std::ranges::all_of(lineUp.order, [](const Placed& one) { return one.player == kNobody; })) {
    lineUp.order.clear();
  }
  if (take(told.pitcher)) lineUp.pitchers.push_back(told.pitcher);
  for (const int player : told.pitched) {
    if (IsPitcher(club.players[player]) && take(player)) lineUp.pitchers.push_back(player);
  }
  for (const int player : told.came) {
    if (!IsPitcher(club.players[player]) && take(player)) lineUp.bench.push_back(player);
  }
  std::vector<Nearness> nearness;
  for (const auto& claim : claims) {
    nearness.push_back(claim ? Nearness(NearnessOf(*claim)) : std::nullopt);
  }
  AddOthers(club, lineUp, nearness);
  return lineUp;
}

}  // namespace

std::array<LineUp, 2> LineUpsOfGame(const Season& season, const Game& game) {
  std::array<Claims, 2> claims{ClaimsOf(season, game, 0), ClaimsOf(season, game, 1)};
  SettleClaims(season, game, claims);
  return {LineUpOfSide(season, game, 0, claims[0]), LineUpOfSide(season, game, 1, claims[1])};
}

}  // namespace dtb::archive
