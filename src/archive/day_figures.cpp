#include "archive/day_figures.h"

#include <algorithm>
#include <array>

namespace dtb::archive {
namespace {

// Each figure has a bit in the mask of a day; the figures of those that are set follow.
constexpr std::array kBatting{&Batting::atBats,         &Batting::hits,
                              &Batting::doubles,        &Batting::triples,
                              &Batting::homeRuns,       &Batting::walks,
                              &Batting::strikeouts,     &Batting::runs,
                              &Batting::runsBattedIn,   &Batting::hitByPitch,
                              &Batting::stolenBases,    &Batting::sacrificeHits,
                              &Batting::sacrificeFlies, &Batting::intoDoublePlays,
                              &Batting::leftOnBase};
constexpr std::array kPitching{&Pitching::games,  &Pitching::starts,     &Pitching::outs,
                               &Pitching::hits,   &Pitching::homeRuns,   &Pitching::walks,
                               &Pitching::wins,   &Pitching::strikeouts, &Pitching::earnedRuns,
                               &Pitching::losses, &Pitching::saves,      &Pitching::outsUncharged,
                               &Pitching::runs};

// Seven bits a byte, the lowest first; the highest bit says that more follow.
void PackNumber(std::vector<std::uint8_t>& packed, std::uint32_t number) {
  constexpr std::uint32_t kMore = 0x80;
  for (; number >= kMore; number >>= 7U) {
    packed.push_back(static_cast<std::uint8_t>(number | kMore));
  }
  packed.push_back(static_cast<std::uint8_t>(number));
}

class Unpacker {
 public:
  explicit Unpacker(const std::vector<std::uint8_t>& packed) : packed_(packed) {}
  [[nodiscard]] bool more() const { return at_ < packed_.size(); }
  std::uint32_t Number() {
    constexpr std::uint32_t kBits = 0x7F;
    std::uint32_t number = 0;
    for (unsigned shift = 0; more(); shift += 7) {
      const std::uint32_t byte = packed_[at_++];
      number |= (byte & kBits) << shift;
      if (byte <= kBits) break;
    }
    return number;
  }

 private:
  const std::vector<std::uint8_t>& packed_;
  std::size_t at_ = 0;
};

template <class Figures, std::size_t size>
std::uint32_t MaskOf(const std::array<int Figures::*, size>& members, const Figures& before,
                     const Figures& after) {
  std::uint32_t mask = 0;
  for (std::size_t i = 0; i < size; ++i) {
    if (after.*members.at(i) > before.*members.at(i)) mask |= 1U << i;
  }
  return mask;
}

template <class Figures, std::size_t size>
void PackFigures(std::vector<std::uint8_t>& packed, std::uint32_t mask,
                 const std::array<int Figures::*, size>& members, const Figures& before,
                 const Figures& after) {
  for (std::size_t i = 0; i < size; ++i) {
    if (((mask >> i) & 1U) == 0) continue;
    PackNumber(packed, static_cast<std::uint32_t>(after.*members.at(i) - before.*members.at(i)));
  }
}

template <class Figures, std::size_t size>
void Unpack(Unpacker& packed, std::uint32_t mask, const std::array<int Figures::*, size>& members,
            Figures& figures) {
  for (std::size_t i = 0; i < size; ++i) {
    if ((mask >> i) & 1U) figures.*members.at(i) = static_cast<int>(packed.Number());
  }
}

template <class Figures, std::size_t size>
std::uint32_t BitOf(const std::array<int Figures::*, size>& members, int Figures::*figure,
                    std::size_t first) {
  const auto place = std::ranges::find(members, figure) - members.begin();
  return 1U << (first + static_cast<std::size_t>(place));
}

}  // namespace

// The first number is the player and, in its lowest bit, whether he pitched.
void PackDay(std::vector<std::uint8_t>& packed, int player, const Batting& before,
             const Batting& after, const Pitching& pitchedBefore, const Pitching& pitchedAfter) {
  const std::uint32_t batted = MaskOf(kBatting, before, after);
  const std::uint32_t pitched = MaskOf(kPitching, pitchedBefore, pitchedAfter);
  PackNumber(packed, static_cast<std::uint32_t>(player) * 2 + (pitched != 0 ? 1 : 0));
  PackNumber(packed, batted);
  PackFigures(packed, batted, kBatting, before, after);
  if (pitched == 0) return;
  PackNumber(packed, pitched);
  PackFigures(packed, pitched, kPitching, pitchedBefore, pitchedAfter);
}

void ForEachDay(const GameSide& side, const std::function<void(const DayFigures&)>& take) {
  Unpacker packed(side.figures);
  while (packed.more()) {
    const std::uint32_t player = packed.Number();
    DayFigures day{static_cast<int>(player / 2), {}, {}};
    Unpack(packed, packed.Number(), kBatting, day.batting);
    if (player % 2 != 0) Unpack(packed, packed.Number(), kPitching, day.pitching);
    day.batting.games = 1;
    take(day);
  }
}

void Add(Batting& sum, const Batting& day) {
  sum.games += day.games;
  for (const auto figure : kBatting) sum.*figure += day.*figure;
}

void Add(Pitching& sum, const Pitching& day) {
  for (const auto figure : kPitching) sum.*figure += day.*figure;
}

std::uint32_t UntoldBit(int Batting::*figure) { return BitOf(kBatting, figure, 0); }
std::uint32_t UntoldBit(int Pitching::*figure) { return BitOf(kPitching, figure, kBatting.size()); }

}  // namespace dtb::archive
