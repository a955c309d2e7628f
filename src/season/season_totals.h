// What a player or a team did over some games, at bat and as a pitcher.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <variant>

#include "platform/database.h"

namespace dtb {

enum class SeasonRole : std::uint8_t { Batting, Pitching };

struct BattingTotals {
  double games = 0;
  double atBats = 0;
  double hits = 0;
  double doubles = 0;
  double triples = 0;
  double homeRuns = 0;
  double runsBattedIn = 0;
  double walks = 0;
  double strikeouts = 0;
  double stolenBases = 0;
  // Of the games whose plays are known.
  double runs = 0;
  double intoDoublePlays = 0;
  double leftOnBase = 0;  // runners, when he was out
};

struct PitchingTotals {
  double games = 0;
  double outs = 0;  // thirds of innings
  double hits = 0;
  double earnedRuns = 0;
  double homeRuns = 0;
  double walks = 0;
  double strikeouts = 0;
  // Of the games whose plays are known.
  double wins = 0;
  double losses = 0;
  double saves = 0;
  double runs = 0;  // all that are charged to him
};

// Those of one role.
using SeasonTotals = std::variant<BattingTotals, PitchingTotals>;

// Nothing done in this role yet.
[[nodiscard]] SeasonTotals NoTotals(SeasonRole role);
BattingTotals& operator+=(BattingTotals& sum, const BattingTotals& totals);
PitchingTotals& operator+=(PitchingTotals& sum, const PitchingTotals& totals);
// Both are of one role, or std::bad_variant_access is thrown.
SeasonTotals& operator+=(SeasonTotals& sum, const SeasonTotals& totals);
void SetGames(SeasonTotals& totals, double games);

// The table of a role, and its column of names.
[[nodiscard]] std::string TableOf(SeasonRole role);
[[nodiscard]] std::string NameColumnOf(SeasonRole role);

// The sums of a role's columns in the rows of one group, as the select list of a statement, and the
// same of a single row.
[[nodiscard]] std::string SelectedSums(SeasonRole role);
[[nodiscard]] std::string SelectedFigures(SeasonRole role);
// The totals of those values.
[[nodiscard]] SeasonTotals TotalsOf(std::span<const DatabaseValue> values, SeasonRole role);

// What the tables of the plays tell of a role: one player's part in one game, or in several.
struct PlayPart {
  std::string game;  // GameID; "" where the parts are not by game
  std::string team;
  std::string name;
  SeasonTotals part;
};
// Calls the function with all of them, some of them in several parts. `byGame`: apart for each
// game. `team` and `name`: of that team, or of that player alone. Throws ProgramError.
struct PlayScope {
  bool byGame = false;
  std::optional<std::string> team = {};
  std::optional<std::string> name = {};
};
void ForEachPlayPart(DatabaseReader& database, SeasonRole role, const PlayScope& scope,
                     const std::function<void(const PlayPart&)>& take,
                     const std::stop_token& stop = {});

// A rate as the counts of which it is made, so that it is rounded but once.
struct Quotient {
  double part = 0;
  double whole = 1;
  [[nodiscard]] double value() const { return part / whole; }
};

// Rates; nothing where they cannot be told.
[[nodiscard]] std::optional<Quotient> BattingAverage(const BattingTotals& batting);
[[nodiscard]] std::optional<Quotient> SluggingAverage(const BattingTotals& batting);
[[nodiscard]] std::optional<Quotient> EarnedRunAverage(const PitchingTotals& pitching);
[[nodiscard]] std::optional<Quotient> WinningPercentage(const PitchingTotals& pitching);

}  // namespace dtb
