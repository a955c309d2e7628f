#include "record/batting_places.h"

#include <algorithm>
#include <array>

#include "game/play_sums.h"

namespace dtb {
namespace {

class Finder {
 public:
  void Take(const Play& play, std::size_t number) {
    if (play.half != half_) bases_ = {};
    half_ = play.half;
    number_ = number;
    const bool fromBench = std::ranges::count(play.moves, kFromBench, &Move::from) > 0;
    for (const Move& move : play.moves) {
      if (IsBase(move.from)) Stands(move.name, move.from);
    }
    if (EndsTimeAtBat(play.outcome) && !fromBench && !play.batter.empty()) Bats(play.batter);
    for (const Move& move : play.moves) {
      if (IsBase(move.from)) bases_.at(Index(move.from)).clear();
    }
    for (const Move& move : play.moves) {
      if (IsBase(move.to)) bases_.at(Index(move.to)) = move.name;
    }
    // Someone stands where another one stood, without a move.
    for (int base = kFirstBase; base <= kThirdBase; ++base) {
      Stands(play.after.at(Index(base)), base);
    }
    bases_ = play.after;
  }

  std::vector<BattingPlace> places;

 private:
  static bool IsBase(int place) { return place >= kFirstBase && place <= kThirdBase; }
  static std::size_t Index(int base) { return static_cast<std::size_t>(base) - 1; }

  [[nodiscard]] const BattingPlace* Find(const std::string& name) const {
    const auto found = std::ranges::find(places, name, &BattingPlace::name);
    return found == places.end() ? nullptr : &*found;
  }

  [[nodiscard]] std::string LastIn(int place) const {
    const auto last = std::find_if(places.rbegin(), places.rend(),
                                   [place](const auto& one) { return one.place == place; });
    return last == places.rend() ? "" : last->name;
  }

  void Bats(const std::string& name) {
    const BattingPlace* known = Find(name);
    const int place = known != nullptr ? known->place : next_ + 1;
    if (known == nullptr) {
      const std::string before = LastIn(place);
      const Entrance entrance = before.empty() ? Entrance::Start : Entrance::Batting;
      places.push_back({name, place, entrance, number_, before});
    }
    next_ = place % kLineupSlots;
  }

  // A player stands on a base; if another one stood there, he runs for him.
  void Stands(const std::string& name, int base) {
    const std::string& before = bases_.at(Index(base));
    if (name.empty() || name == before) return;
    const BattingPlace* replaced = Find(before);
    if (replaced == nullptr || Find(name) != nullptr) return;
    places.push_back({name, replaced->place, Entrance::Running, number_, before});
  }

  int half_ = -1;
  int next_ = 0;
  std::size_t number_ = 0;
  std::array<std::string, kBases> bases_;
};

}  // namespace

std::vector<BattingPlace> PlacesOf(const GameRecord& game, Side side) {
  Finder finder;
  for (std::size_t number = 0; number < game.plays.size(); ++number) {
    if (game.BattingIn(game.plays[number]) == side) finder.Take(game.plays[number], number);
  }
  return std::move(finder.places);
}

}  // namespace dtb
