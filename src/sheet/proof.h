// A box score proves itself: its figures agree with each other before it is filed (Official
// Baseball Rules, 9.03(c)).
#pragma once

#include <string>
#include <vector>

#include "game/board.h"

namespace dtb {

// What a finding is about, in the order in which they are told.
enum class FindingKind {
  BatterNotSaved,    // figures of a player who is not marked as having played
  InningsPitched,    // other than the outs that were made while he pitched
  NamelessInnings,   // innings in a row without a name
  Disagreement,      // batters, line score and pitchers count the same thing differently
  TotalOfRuns,       // the R cell is not the sum of the innings
  MoreThanRuns,      // runs batted in, or earned, beyond the runs
  Appearances,       // too few or too many for the runs, the outs and those left on base
  Plays,             // other than what the plays add up to
  HitsBeyondAtBats,  // more hits and strikeouts than at-bats
  HomeRunsAlone,     // more home runs than runs batted in
  IdlePitcher,       // no out, no batter and no run
  NotOnSheet,        // a player of the batting order who has no line
  SameName,          // a name that stands twice, or in both teams
  TextForNumber,
};

struct Finding {
  FindingKind kind = FindingKind::BatterNotSaved;
  Side side = Side::Visitors;  // whose
  int row = 0;                 // cell of the side's table that it is about; 0: none
  int column = 0;
  std::string words;  // "Elston Howard has 1 HR and 2 RBI but would not be saved."
  std::string now;    // how the cell reads, or would be saved
  std::string ought;  // how it ought to read
  bool canBePutRight = false;
};

// While the sheet is open the outs in progress are those of the side in the field. A save counts
// them for both sides, so that a game that ends before the third out needs another look then.
enum class ProofMoment { Sheet, Save };

// All that does not agree, by the board and the sheet alone. Nothing changes.
[[nodiscard]] std::vector<Finding> Prove(Board& board, ProofMoment moment);

// Puts right what can be put right, and logs each of it. One step of the history. A finding that is
// no longer so changes nothing. Where all that can be is put right, nothing of that kind is left.
void PutRight(Board& board, ProofMoment moment, const std::vector<Finding>& findings);

// "In proof", or "2 figures to look at".
[[nodiscard]] std::string ProofSummary(const std::vector<Finding>& findings);

}  // namespace dtb
