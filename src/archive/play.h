// The notation of a play: what the batter did, and where he and the runners went.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace dtb::archive {

// How a time at bat ended, as far as the figures tell it apart.
enum class PlateAppearance : std::uint8_t {
  None,  // it goes on: a steal, a wild pitch, a substitution, ...
  Out,
  Strikeout,
  Single,
  Double,
  Triple,
  HomeRun,
  Walk,
  HitByPitch,
  Interference,  // the catcher's
  Error,
  FieldersChoice,
};

// Bases count from 1; the batter stands on 0, and kHome is home.
inline constexpr int kHome = 4;
inline constexpr int kStays = -1;
inline constexpr int kIsOut = -2;

// What the text says of a run itself; else the rules tell.
enum class RunMark : std::uint8_t { None, BattedIn, NotBattedIn };

struct Play {
  PlateAppearance appearance = PlateAppearance::None;
  bool sacrificeHit = false;
  bool sacrificeFly = false;
  bool groundedIntoDoublePlay = false;
  // Where the player on each base goes: a base, kHome, kStays or kIsOut. The batter's is kStays for
  // as long as he bats. Who is not named stays; on a home run that means that he scores.
  std::array<int, 4> goes{kStays, kStays, kStays, kStays};
  std::array<bool, 4> steals{};    // the player who stood there
  std::array<RunMark, 4> marks{};  // of the player who stood there, if he comes home

  [[nodiscard]] bool ended() const { return appearance != PlateAppearance::None; }
  [[nodiscard]] bool hit() const {
    return appearance >= PlateAppearance::Single && appearance <= PlateAppearance::HomeRun;
  }
  [[nodiscard]] bool countsAsAtBat() const;
  // The batter is out, or a runner by his choice; no sacrifice.
  [[nodiscard]] bool leavesRunners() const;
  [[nodiscard]] int outs() const;
  [[nodiscard]] int runs() const;
  // The run of the player who stood there is batted in; `forced`: by full bases.
  [[nodiscard]] bool BatsIn(int from, int outsBefore, bool forced) const;
};

// Reads the last field of a play. Moves that the text names come before those that the event
// implies; a player whose out an error undid, "1X2(4E3)", has the base. False where a part of the
// text makes no sense: then the rest stands in `play`.
[[nodiscard]] bool ReadPlay(std::string_view text, Play& play);

}  // namespace dtb::archive
