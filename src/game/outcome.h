// What the board can record.
#pragma once

#include <string_view>

namespace dtb {

enum class Outcome {
  Single,
  Double,
  Triple,
  Homer,
  Walk,
  Strikeout,
  Groundout,
  Flyout,
  Lineout,
  Popout,
  DoublePlay,
  FieldersChoice,
  ThrownOut,
  AtBat,
  RunBattedIn,
  // Of runners, and without an at-bat; the board has no labels for these.
  StolenBase,
  TakesFirst,  // hit by a pitch, interference
  Sacrifice,   // the batter is out
  Advance,     // a wild pitch, a passed ball, a balk
  PutOnBase,   // a runner with whom a half-inning begins
};

// A single, a double, a triple or a home run.
[[nodiscard]] constexpr bool IsHit(Outcome outcome) { return outcome <= Outcome::Homer; }

// What stands behind the batter's list line in the event log: "_____1B".
[[nodiscard]] std::string_view LogSuffix(Outcome outcome);

// The outcome in the short: "1B", "AB".
[[nodiscard]] std::string_view OutcomeCode(Outcome outcome);

}  // namespace dtb
