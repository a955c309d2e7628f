#include "sheet/play_proof.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "base/words.h"
#include "game/game_end.h"
#include "game/innings.h"
#include "game/play_credits.h"
#include "game/play_sums.h"

namespace dtb {
namespace {

using namespace stat_column;

std::vector<Play> PlaysOf(const BoardState& state, Side batting) {
  std::vector<Play> plays = state.plays.All();
  std::erase_if(plays, [batting](const Play& play) {
    return (play.half % 2 == 0) != (batting == Side::Visitors);
  });
  return plays;
}

// A figure of a player as the plays have it, and as the sheet has it, in all lines of his name.
struct TwoCounts {
  double plays = 0;
  double sheet = 0;
  int row = 0;  // his first line; 0: he has none
};
using Counts = std::map<std::string, TwoCounts>;

void AddSheet(Counts& counts, const StatGrid& grid, int nameColumn, int column) {
  for (int row = 1; row < grid.rows(); ++row) {
    const std::string name(grid.Text(row, nameColumn));
    if (name.empty()) continue;
    TwoCounts& count = counts[name];
    count.sheet += NumberOf(grid.Text(row, column));
    if (count.row == 0) count.row = row;
  }
}

class PlayProof {
 public:
  PlayProof(Board& board, Side batting)
      : board_(board), batting_(batting), plays_(PlaysOf(board.state, batting)) {}

  std::vector<Finding> All() {
    FindRuns();
    FindHalves();
    FindRunsBattedIn();
    FindEarnedRuns();
    return std::move(findings_);
  }

 private:
  [[nodiscard]] std::string TeamOf(Side side) { return SideOf(board_, side).sheetTeam.value(); }
  void Tell(std::string words) {
    findings_.push_back({FindingKind::Plays, batting_, 0, 0, std::move(words), {}, {}, false});
  }
  // About a cell, where the player has one.
  void TellOfCell(Side side, int row, int column, std::string words) {
    if (row == 0) return Tell(std::move(words));
    std::string now(SideOf(board_, side).grid.Text(row, column));
    findings_.push_back(
        {FindingKind::Plays, side, row, column, std::move(words), std::move(now), {}, false});
  }

  void FindRuns() {
    const PlaySums sums = SumsOf(board_, batting_);
    const double told = RunsOfInnings(SideOf(board_, batting_).score);
    const std::string team = TeamOf(batting_);
    if (told != sums.total) {
      Tell("The plays of " + team + " add up to " + Counted(sums.total, "run") +
           ", but the line score says " + DecimalText(told) + ".");
    }
    int scored = 0;
    for (const auto& [name, runs] : sums.runs) scored += runs;
    if (scored != sums.total) {
      Tell("The players of " + team + " scored " + Counted(scored, "run") +
           ", but its plays add up to " + std::to_string(sums.total) +
           ". A run that was counted with RBI names no runner.");
    }
  }

  // Who came up is out, has scored or was left on base.
  void FindHalves() {
    const int inProgress = HalfInProgress(board_.state);
    for (const HalfSums& half : HalvesOf(board_.state)) {
      const bool last = half.half >= inProgress;
      if ((half.half % 2 == 0) != (batting_ == Side::Visitors)) continue;
      if (last && !IsGameOver(board_.state)) continue;
      const int outs = last ? half.outs : kOutsOfHalf;
      const int sum = outs + half.runs + half.left;
      if (half.cameUp == sum) continue;
      Tell(std::string(half.half % 2 == 0 ? "Top" : "Bottom")
               .append(" of inning ")
               .append(std::to_string(half.half / 2 + 1))
               .append(": ")
               .append(std::to_string(half.cameUp))
               .append(" came up, but ")
               .append(Counted(outs, "out"))
               .append(", ")
               .append(Counted(half.runs, "run"))
               .append(" and ")
               .append(std::to_string(half.left))
               .append(" left on base are ")
               .append(std::to_string(sum))
               .append("."));
    }
  }

  void FindRunsBattedIn() {
    Counts counts;
    for (const Play& play : plays_) {
      const auto batted = std::ranges::count(play.moves, true, &Move::battedIn);
      const int named = play.outcome == Outcome::RunBattedIn ? 1 : 0;
      if (batted + named > 0) counts[play.batter].plays += static_cast<double>(batted + named);
    }
    AddSheet(counts, SideOf(board_, batting_).grid, kBatter, kRunsBattedIn);
    for (const auto& [name, count] : counts) {
      if (count.plays == count.sheet) continue;
      TellOfCell(batting_, count.row, kRunsBattedIn,
                 name + " has " + DecimalText(count.sheet) + " RBI, but the plays give him " +
                     DecimalText(count.plays) + ".");
    }
  }

  void FindEarnedRuns() {
    Counts counts;
    for (const Play& play : plays_) {
      for (const Move& move : play.moves) counts[move.pitcher].plays += move.earned ? 1 : 0;
      if (play.outcome == Outcome::RunBattedIn) ++counts[play.pitcher].plays;
    }
    const Side fielding = Other(batting_);
    AddSheet(counts, SideOf(board_, fielding).grid, kPitcher, kEarnedRuns);
    for (const auto& [name, count] : counts) {
      if (count.plays == count.sheet) continue;
      std::string words = name;
      words += " has " + DecimalText(count.sheet) + " ER, but ";
      words += count.plays == 1 ? "1 earned run of the plays is"
                                : DecimalText(count.plays) + " earned runs of the plays are";
      TellOfCell(fielding, count.row, kEarnedRuns, words + " his.");
    }
  }

  Board& board_;
  Side batting_;
  std::vector<Play> plays_;
  std::vector<Finding> findings_;
};

}  // namespace

bool PlaysTell(Board& board, Side batting) {
  const std::vector<Play> plays = PlaysOf(board.state, batting);
  std::set<int> halves;
  for (const Play& play : plays) {
    if (!play.basesKept || SideOfBatter(board, play) != batting) return false;
    if (!halves.empty() && play.half < *halves.rbegin()) return false;
    halves.insert(play.half);
  }
  const int first = batting == Side::Visitors ? 0 : 1;
  for (int half = first; half < HalfInProgress(board.state); half += 2) {
    if (!halves.contains(half)) return false;
  }
  return !plays.empty();
}

std::vector<Finding> ProvePlays(Board& board, Side batting) {
  return PlaysTell(board, batting) ? PlayProof(board, batting).All() : std::vector<Finding>{};
}

}  // namespace dtb
