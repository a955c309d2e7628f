// One game as people tell it: who batted in which place, who pitched, and every play. It is made of
// the board's game or of a saved one, and all that is shown of a game comes from it: the box score,
// the scorecard, the story, and who won and lost.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "game/board.h"
#include "game/plays.h"
#include "record/decisions.h"

namespace dtb {

inline constexpr int kLineupSlots = 9;

// The figures of a batter, as the sheet has them. They are doubles because a person may write any
// number there.
struct BatterFigures {
  double atBats = 0;
  double singles = 0;
  double doubles = 0;
  double triples = 0;
  double homeRuns = 0;
  double runsBattedIn = 0;
  double walks = 0;
  double strikeouts = 0;
  double steals = 0;
  double runs = 0;  // from the plays; see SideRecord::runsKnown
  [[nodiscard]] double hits() const { return singles + doubles + triples + homeRuns; }
  BatterFigures& operator+=(const BatterFigures& other);
};

struct BatterRecord {
  std::string name;
  std::string position = {};  // "SS", where the team's file tells it
  int place = 0;              // in the batting order, 1 to 9; 0: not known, or he never batted
  bool substitute = false;    // not the first in his place
  BatterFigures figures = {};
};

struct PitcherFigures {
  double outs = 0;
  double hits = 0;
  double earnedRuns = 0;
  double walks = 0;
  double strikeouts = 0;
  double homeRuns = 0;
  double runs = 0;  // all that are charged, from the plays; see SideRecord::runsKnown
  PitcherFigures& operator+=(const PitcherFigures& other);
};

struct PitcherRecord {
  std::string name;
  PitcherFigures figures = {};
};

struct SideRecord {
  std::string team;
  // By place in the order, each place in the order of entrance; those without a place come last.
  std::vector<BatterRecord> batters = {};
  std::vector<PitcherRecord> pitchers = {};  // in the order in which they came in
  std::vector<std::string> innings = {};     // the cells of the line score, as they are written
  double runs = 0;
  double hits = 0;
  double errors = 0;
  bool runsKnown = false;  // the plays tell who scored each run of this side
};

struct GameRecord {
  std::string id = {};                   // GameID; "" while the game is not saved
  std::string date = {};                 // "2020-08-07"; "" while the game is not saved
  std::string park = {};                 // "" where it is not known
  std::string archive = {};              // the archive's id of the game; "" for a game of one's own
  bool over = false;                     // the game has ended
  std::array<SideRecord, 2> sides = {};  // visitors, home team
  // In the order in which they happened; none for a game without plays.
  std::vector<Play> plays = {};
  std::vector<PitcherDecision> decisions = {};

  [[nodiscard]] const SideRecord& side(Side side) const {
    return sides.at(side == Side::Visitors ? 0 : 1);
  }
  [[nodiscard]] SideRecord& side(Side side) { return sides.at(side == Side::Visitors ? 0 : 1); }
  // The side whose batter it is: the visitors in the even half-innings, unless the game was played
  // in the other order, which the names tell.
  [[nodiscard]] Side BattingIn(const Play& play) const;
};

// Sets the places of the batters, in whatever order they stand, and puts them in their order;
// counts the runs of batters and pitchers, and tells whether the plays know all of them. For
// batters whose place no play tells, the one that they have stays.
void SettleRecord(GameRecord& game);

// The game on the board, with the decisions that stand on the sheet. GameID and date are those of
// the save, if it is saved.
[[nodiscard]] GameRecord RecordOf(Board& board);

// Innings with two decimals, 6.33, as outs, 19.
[[nodiscard]] double OutsOfInnings(double innings);

// The sums of a side.
[[nodiscard]] BatterFigures SumOf(const std::vector<BatterRecord>& batters);
[[nodiscard]] PitcherFigures SumOf(const std::vector<PitcherRecord>& pitchers);

}  // namespace dtb
