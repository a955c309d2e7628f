// A side's page of the scorecard: what a scorer writes into it by pencil, box by box.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "record/game_record.h"

namespace dtb {

inline constexpr int kUsualInnings = 9;

// One time at bat, or a runner who came on without one, and his way around the bases.
struct ScoreBox {
  int place = 1;  // in the order, from 1
  int inning = 1;
  int pass = 0;      // how often the order has gone around in the inning before
  int column = 0;    // of Scorecard::columns
  std::string sign;  // "1B", "K"; see SignOf
  int start = 0;     // the base where his way begins; 0: the plate
  int reached = 0;   // the last base that he stood on; 4: he scored
  std::array<bool, kHomePlate + 1> stolen{};  // the bases that he stole, by their number
  int outBefore = 0;        // the base that he did not reach, put out as a runner; 0: he was not
  int outNumber = 0;        // of the half-inning, 1 to 3; 0: he was not put out
  int runsBattedIn = 0;     // by this time at bat
  int newPitcher = 0;       // the number of the pitcher who faces him first; 0: no change
  bool substitute = false;  // his first box is not the first of his place
  bool ranFor = false;      // somebody ran for him
  bool endsHalf = false;    // the last box of a half-inning that is over
  [[nodiscard]] bool scored() const { return reached == kHomePlate; }
};

// A batter of a place, or a substitute in it.
struct ScoreLine {
  BatterRecord player = {};
  int inning = 0;         // a substitute's first; 0: not known
  bool asRunner = false;  // he came in as a pinch runner
};

// An inning, or a further column of one in which the order went around.
struct ScoreColumn {
  int inning = 1;
  int pass = 0;  // 0 for its first column
};

// What stands below an inning; "" for what is not known or not over yet.
struct InningSums {
  int inning = 1;
  std::string runs;
  std::string hits;
  std::string left;
};

struct ScorePitcher {
  int number = 1;
  PitcherRecord record = {};
  std::string decision = {};  // "W", "BS"; several with a comma between
  bool runsKnown = false;     // the runs that are charged to him
};

struct Scorecard {
  Side side = Side::Visitors;
  std::string team;
  std::string other;  // the team in the field
  std::string date;
  std::string park;
  std::array<SideRecord, 2> lineScore = {};  // names and cells alone; visitors, home team
  // By place; behind the nine those whose place is not known, who have no boxes.
  std::vector<std::vector<ScoreLine>> places = {};
  std::vector<ScoreColumn> columns = {};  // nine innings at least
  std::vector<ScoreBox> boxes = {};
  std::vector<InningSums> innings = {};
  BatterFigures sums = {};
  bool runsKnown = false;                   // the batters' runs
  std::string left;                         // on base in all innings; "" where it is not known
  std::vector<ScorePitcher> pitchers = {};  // of the team in the field
  std::vector<BatterRecord> bench = {};     // of an empty card: who may come in
  bool toFillIn = false;                    // an empty card, for a pencil
  std::string note = {};                    // what the card cannot tell, and why
};

// The card of the side's batters. Who cannot be placed by the record stands where the order has
// come to. Where the plays do not tell of the runners, the boxes have what is known.
[[nodiscard]] Scorecard ScorecardOf(const GameRecord& game, Side side);

// What a scorer writes for a play of the batter: "1B 2B 3B HR BB K GO FO LO PO DP FC"; "E" where he
// reached first on an error, "HP" where he took it without an at-bat, "SAC" for an out without
// one, "AB" for an at-bat of which no more is known, "R" for a runner with whom the half-inning
// began. "" where the play is none of his.
[[nodiscard]] std::string SignOf(const Play& play);

// The boxes for those who do not see them, a place a line: "1 Tony Kubek: inning 1 1B, scored;
// inning 3 GO, out 2".
[[nodiscard]] std::string ScorecardInWords(const Scorecard& card);

}  // namespace dtb
