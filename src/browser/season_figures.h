// The saved games as a season: who played whom, in which order, and what each man did in all of
// them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "platform/database.h"
#include "platform/platform.h"

namespace dtb {

enum class SeasonRole : std::uint8_t { Batting, Pitching };

// Counters of a man or a team over some games, at the places below.
using SeasonLine = std::array<double, 10>;

namespace batting_line {
inline constexpr std::size_t kGames = 0;
inline constexpr std::size_t kAtBats = 1;
inline constexpr std::size_t kHits = 2;
inline constexpr std::size_t kDoubles = 3;
inline constexpr std::size_t kTriples = 4;
inline constexpr std::size_t kHomeRuns = 5;
inline constexpr std::size_t kRunsBattedIn = 6;
inline constexpr std::size_t kWalks = 7;
inline constexpr std::size_t kStrikeouts = 8;
inline constexpr std::size_t kStolenBases = 9;
}  // namespace batting_line

namespace pitching_line {
inline constexpr std::size_t kGames = 0;
inline constexpr std::size_t kOuts = 1;  // thirds of innings
inline constexpr std::size_t kHits = 2;
inline constexpr std::size_t kEarnedRuns = 3;
inline constexpr std::size_t kHomeRuns = 4;
inline constexpr std::size_t kWalks = 5;
inline constexpr std::size_t kStrikeouts = 6;
}  // namespace pitching_line

SeasonLine& operator+=(SeasonLine& sum, const SeasonLine& line);

// A rate as the counts of which it is made, so that it is rounded but once.
struct Quotient {
  double part = 0;
  double whole = 1;
  [[nodiscard]] double value() const { return part / whole; }
};

struct SeasonSide {
  int team = 0;  // its place among the teams
  double runs = 0;
  double hits = 0;
  double errors = 0;
  int line = 0;  // the row of its line score among all, as they are stored, from 1 on
};

struct SeasonGame {
  std::string id;                        // GameID
  std::optional<LocalTime> time;         // none: the GameID tells none
  std::array<SeasonSide, 2> sides = {};  // visitors, home team
};

struct SeasonTeam {
  std::string name;
  std::vector<int> games = {};  // their places, in order; one against itself stands twice
  int wins = 0;
  int losses = 0;
  double runs = 0;
  double runsAllowed = 0;

  [[nodiscard]] int ties() const { return static_cast<int>(games.size()) - wins - losses; }
  // Games above .500; below it is negative.
  [[nodiscard]] int above() const { return wins - losses; }
};

// A man of one team; a name in two teams is two men.
struct SeasonMan {
  std::string name;
  int team = 0;
  std::optional<SeasonLine> batting = {};
  std::optional<SeasonLine> pitching = {};

  [[nodiscard]] const std::optional<SeasonLine>& line(SeasonRole role) const {
    return role == SeasonRole::Batting ? batting : pitching;
  }
};

struct SeasonFigures {
  // In the order in which they were played. Those without a time come last, as they were stored.
  std::vector<SeasonGame> games;
  std::vector<SeasonTeam> teams;  // in the order of names, those without a game as well
  std::vector<SeasonMan> men;     // in the order of names, then of teams
  int lonelyLines = 0;            // line scores whose game lacks the other one: no games
  // Games with the GameID and a team of another one: nothing tells their players' rows apart, which
  // count for the first of them.
  int mixedGames = 0;
};

// Reads all saved games. Games, wins and losses are those of the line scores, since no other table
// knows both the day and the opponent. Throws ProgramError. Any thread may call it; once a stop is
// asked for, it fails soon.
[[nodiscard]] SeasonFigures ReadSeason(Database& database, const std::stop_token& stop = {});

// Earlier ones first, none last; equal ones are not ordered.
[[nodiscard]] bool IsEarlier(const std::optional<LocalTime>& first,
                             const std::optional<LocalTime>& second);

// The sums of the line's columns in the rows of one group, as the select list of a statement; in
// the order of the line's places.
[[nodiscard]] std::string SeasonSums(SeasonRole role);
// The line that such a statement has in a row of its result, from a column on.
[[nodiscard]] SeasonLine SeasonLineOf(const StatGrid& rows, int row, int column, SeasonRole role);

// Rates; nothing where they cannot be told.
[[nodiscard]] std::optional<Quotient> BattingAverage(const SeasonLine& batting);
[[nodiscard]] std::optional<Quotient> SluggingAverage(const SeasonLine& batting);
[[nodiscard]] std::optional<Quotient> EarnedRunAverage(const SeasonLine& pitching);

}  // namespace dtb
