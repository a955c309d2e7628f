// The saved games as a season: who played whom, in which order, and what each player did in all
// of them.
#pragma once

#include <array>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "base/time_stamp.h"
#include "platform/database.h"
#include "season/season_totals.h"

namespace dtb {

struct SeasonSide {
  int team = 0;  // its place among the teams
  double runs = 0;
  double hits = 0;
  double errors = 0;
  int line = 0;  // the row of its line score among all, as they are stored, from 1 on
};

struct SeasonGame {
  std::string id;                        // GameID
  std::optional<LocalTime> time;         // of the save; none: the GameID tells none
  std::optional<LocalTime> day = {};     // on which it is played, perhaps long ago; else that time
  std::array<SeasonSide, 2> sides = {};  // visitors, home team
  bool mixed = false;                    // one of SeasonFigures::mixedGames
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

// A player of one team; a name in two teams is two players.
struct SeasonPlayer {
  std::string name;
  int team = 0;
  std::optional<BattingTotals> batting = {};
  std::optional<PitchingTotals> pitching = {};

  [[nodiscard]] bool has(SeasonRole role) const {
    return role == SeasonRole::Batting ? batting.has_value() : pitching.has_value();
  }
};

// Threads share them once they are read, and nobody changes them then.
struct SeasonFigures {
  // In the order in which they were played. Those without a time come last, as they were stored.
  std::vector<SeasonGame> games;
  std::vector<SeasonTeam> teams;      // in the order of names, those without a game as well
  std::vector<SeasonPlayer> players;  // in the order of names, then of teams
  int lonelyLines = 0;                // line scores whose game lacks the other one: no games
  // Games with the GameID and a team of another one: nothing tells their players' rows apart, which
  // count for the first of them.
  int mixedGames = 0;
};

// Reads all saved games. Games, wins and losses are those of the line scores, since no other table
// knows both the day and the opponent. Throws ProgramError. Any thread may call it; once a stop is
// asked for, it fails soon.
[[nodiscard]] SeasonFigures ReadSeasonFigures(Database& database, const std::stop_token& stop = {});
// The same without what the tables of the plays add, in a fraction of the time.
[[nodiscard]] SeasonFigures ReadPlainFigures(Database& database, const std::stop_token& stop = {});

// Earlier ones first, none last; equal ones are not ordered.
[[nodiscard]] bool IsEarlier(const std::optional<LocalTime>& first,
                             const std::optional<LocalTime>& second);

}  // namespace dtb
