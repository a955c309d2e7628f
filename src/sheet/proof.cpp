#include "sheet/proof.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>

#include "base/words.h"
#include "game/history.h"
#include "game/innings.h"
#include "game/player_name.h"
#include "sheet/number_cells.h"
#include "sheet/play_proof.h"
#include "sheet/reckoning.h"
#include "teams/lineup_edit.h"
#include "teams/pitchers.h"

namespace dtb {
namespace {

using namespace stat_column;

constexpr std::array kSides{Side::Visitors, Side::Home};
constexpr std::array kHitColumns{kSingles, kDoubles, kTriples, kHomeRuns};

std::string Name(const StatGrid& grid, int row, int column) {
  const std::string name(grid.Text(row, column));
  return name.empty() ? "A row without a name" : name;
}

// "1 HR, 2 RBI" of a batter; "" for a player without figures.
std::string FiguresOf(const StatGrid& grid, int row) {
  std::string figures;
  for (int column = kStrikeouts; column <= kAtBats; ++column) {
    const auto text = grid.Text(row, column);
    if (NumberOf(text) == 0) continue;
    figures += figures.empty() ? "" : ", ";
    figures.append(text).append(" ").append(grid.Text(0, column));
  }
  const std::size_t last = figures.rfind(", ");
  if (last != std::string::npos) figures.replace(last, 2, " and ");
  return figures;
}

double HitsOfBatters(const StatGrid& grid) {
  double hits = 0;
  for (const int column : kHitColumns) hits += SumOf(grid, column);
  return hits;
}

// "1 hit", "2 hits".
std::string Count(double number, const std::string& word, const std::string& plural = {}) {
  if (number == 1) return "1 " + word;
  return DecimalText(number) + ' ' + (plural.empty() ? word + 's' : plural);
}

class Proof {
 public:
  Proof(Board& board, ProofMoment moment) : board_(board), moment_(moment) {}

  std::vector<Finding> All() {
    for (const Side side : kSides) FindUnsavedBatters(side);
    for (const Side side : kSides) FindInnings(side);
    for (const Side side : kSides) FindDisagreements(side);
    for (const Side side : kSides) FindRuns(side);
    for (const Side side : kSides) FindAppearances(side);
    for (const Side side : kSides)
      std::ranges::move(ProvePlays(board_, side), std::back_inserter(findings_));
    for (const Side side : kSides) FindBatters(side);
    for (const Side side : kSides) FindIdlePitchers(side);
    for (const Side side : kSides) FindPlayersWithoutLine(side);
    FindNames();
    FindTexts();
    return std::move(findings_);
  }

 private:
  void Add(Finding finding) { findings_.push_back(std::move(finding)); }
  // A disagreement that only the person can mend.
  void Tell(FindingKind kind, Side side, std::string words) {
    Add({kind, side, 0, 0, std::move(words), {}, {}, false});
  }
  [[nodiscard]] std::string TeamOf(Side side) { return SideOf(board_, side).sheetTeam.value(); }

  void FindUnsavedBatters(Side side) {
    const StatGrid& grid = SideOf(board_, side).grid;
    for (int row = 1; row < grid.rows(); ++row) {
      const std::string figures = FiguresOf(grid, row);
      if (figures.empty() || grid.Text(row, kPlayed) == "1") continue;
      const bool named = !grid.Text(row, kBatter).empty();
      Add({FindingKind::BatterNotSaved, side, row, kBatter,
           Name(grid, row, kBatter) + " has " + figures + " but would not be saved.", "", "1",
           named});
    }
  }

  // What a save would store for a pitcher: his cell less what a report wrote there for the time
  // being, and for the present player without innings the rest of his team's.
  [[nodiscard]] std::vector<std::string> InningsToBeSaved(Side side) {
    const SideFields fields = SideOf(board_, side);
    std::vector<std::string> innings;
    double credited = 0;
    for (int row = 0; row < fields.grid.rows(); ++row) {
      std::string text(fields.grid.Text(row, kInningsPitched));
      const ReportedInnings& reported = fields.reported;
      if (row > 0 && row == reported.row && text == reported.written) text = reported.before;
      if (row > 0) credited += NumberOf(text);
      innings.push_back(std::move(text));
    }
    const std::string& pitcher = fields.pitcher.value();
    const auto row = fields.grid.FindRow(kPitcher, pitcher);
    const auto present = static_cast<std::size_t>(row.value_or(0));
    if (present > 0 && !pitcher.empty() && innings[present].empty()) {
      const double pitched = moment_ == ProofMoment::Save ? InningsPitchedBySide(board_, side)
                                                          : OutsInTheField(board_, side) / 3.0;
      innings[present] = TwoDecimals(pitched - credited);
    }
    return innings;
  }

  void FindInnings(Side side) {
    const SideFields fields = SideOf(board_, side);
    const std::vector<std::string> innings = InningsToBeSaved(side);
    for (int row = 1; row < fields.grid.rows(); ++row) {
      const std::string& text = innings[static_cast<std::size_t>(row)];
      const std::string name(fields.grid.Text(row, kPitcher));
      if (name.empty()) {
        if (text.empty()) continue;
        Add({FindingKind::NamelessInnings, side, row, kInningsPitched,
             "A row of " + TeamOf(side) + " without a pitcher has " + text + " innings.", text, "",
             true});
        continue;
      }
      const auto counted = fields.outs.find(name);
      const int outs = counted == fields.outs.end() ? 0 : counted->second;
      if (!text.empty() && !WholeNumberOf(text)) continue;  // told as a text
      if (std::lround(NumberOf(text) * 3) == outs) continue;
      const std::string ought = TwoDecimals(outs / 3.0);
      Add({FindingKind::InningsPitched, side, row, kInningsPitched,
           std::string(name)
               .append(" made ")
               .append(Count(outs, "out"))
               .append(", ")
               .append(ought)
               .append(" innings, but would be saved with ")
               .append(text.empty() ? "none" : text)
               .append("."),
           text, ought, true});
    }
  }

  void FindDisagreements(Side batting) {
    const SideFields fields = SideOf(board_, batting);
    const StatGrid& pitchers = SideOf(board_, Other(batting)).grid;
    const std::string ours = "The batters of " + TeamOf(batting) + " have ";
    const std::string theirs = "the pitchers of " + TeamOf(Other(batting)) + " ";
    const double hits = HitsOfBatters(fields.grid);
    const double told = fields.score.at(kTotalHits).text.number();
    const double given = SumOf(pitchers, kPitcherHits);
    if (hits != told || hits != given) {
      Tell(FindingKind::Disagreement, batting,
           ours + Count(hits, "hit") + ", the H cell of the line score says " + DecimalText(told) +
               ", " + theirs + DecimalText(given) + ".");
    }
    struct Pair {
      int batter;
      int pitcher;
      const char* word;
    };
    for (const auto& [batter, pitcher, word] : {Pair{kWalks, kPitcherWalks, "walk"},
                                                {kStrikeouts, kPitcherStrikeouts, "strikeout"},
                                                {kHomeRuns, kPitcherHomeRuns, "home run"}}) {
      const double made = SumOf(fields.grid, batter);
      const double allowed = SumOf(pitchers, pitcher);
      if (made == allowed) continue;
      Tell(FindingKind::Disagreement, batting,
           std::string(ours)
               .append(Count(made, word))
               .append(", ")
               .append(theirs)
               .append(DecimalText(allowed))
               .append("."));
    }
  }

  void FindRuns(Side batting) {
    const SideFields fields = SideOf(board_, batting);
    const std::string team = TeamOf(batting);
    const double runs = RunsOfInnings(fields.score);
    const TextCell& total = fields.score.at(kTotalRuns).text;
    if (total.number() != runs) {
      Add({FindingKind::TotalOfRuns, batting, 0, 0,
           "The innings of " + team + " add up to " + Count(runs, "run") +
               ", but the R cell says " + total.value() + ".",
           total.value(), DecimalText(runs), true});
    }
    const double batted = SumOf(fields.grid, kRunsBattedIn);
    const double earned = SumOf(SideOf(board_, Other(batting)).grid, kEarnedRuns);
    if (batted > runs) {
      Tell(FindingKind::MoreThanRuns, batting,
           "The batters of " + team + " have " + DecimalText(batted) +
               " RBI, but the team scored " + Count(runs, "run") + ".");
    }
    if (earned > runs) {
      Tell(FindingKind::MoreThanRuns, Other(batting),
           "The pitchers of " + TeamOf(Other(batting)) + " have " + Count(earned, "earned run") +
               ", but " + team + " scored " + Count(runs, "run") + ".");
    }
  }

  // Plate appearances are outs, runs and those left on base. The board counts none for a batter who
  // was hit by a pitch or sacrificed himself, so plays that it knows tell more.
  void FindAppearances(Side batting) {
    if (PlaysTell(board_, batting)) return;
    const Reckoning reckoning = Reckon(board_, batting);
    if (reckoning.leftOnBase >= 0 && reckoning.leftOnBase <= reckoning.mostOnBase) return;
    const std::string team = TeamOf(batting);
    const std::string counted =
        "The batters of " + team + " have " +
        Count(reckoning.appearances, "at-bat and walk", "at-bats and walks");
    const std::string outcome =
        Count(reckoning.outs, "out") + " and " + Count(reckoning.runs, "run");
    if (reckoning.leftOnBase < 0) {
      return Tell(FindingKind::Appearances, batting,
                  counted + ", but " + team + " has " + outcome +
                      ". A batter hit by a pitch or a sacrifice may explain it.");
    }
    Tell(FindingKind::Appearances, batting,
         counted + ", but " + team + " has only " + outcome + ", so " +
             Count(reckoning.leftOnBase, "runner") + " would have been left on base.");
  }

  void FindBatters(Side side) {
    const StatGrid& grid = SideOf(board_, side).grid;
    for (int row = 1; row < grid.rows(); ++row) {
      const auto number = [&grid, row](int column) { return NumberOf(grid.Text(row, column)); };
      double hits = 0;
      for (const int column : kHitColumns) hits += number(column);
      const std::string name = Name(grid, row, kBatter);
      if (hits + number(kStrikeouts) > number(kAtBats)) {
        Add({FindingKind::HitsBeyondAtBats,
             side,
             row,
             kAtBats,
             name + " has " + Count(hits, "hit") + " and " +
                 Count(number(kStrikeouts), "strikeout") + " in " +
                 Count(number(kAtBats), "at-bat") + ".",
             std::string(grid.Text(row, kAtBats)),
             {},
             false});
      }
      if (number(kHomeRuns) > number(kRunsBattedIn)) {
        Add({FindingKind::HomeRunsAlone,
             side,
             row,
             kRunsBattedIn,
             name + " has " + Count(number(kHomeRuns), "home run") + " but " +
                 DecimalText(number(kRunsBattedIn)) +
                 " RBI. A home run drives in the batter himself.",
             std::string(grid.Text(row, kRunsBattedIn)),
             {},
             false});
      }
    }
  }

  // Named by mistake: he would be saved with no innings. Who has just come on may still pitch,
  // until the game is saved.
  void FindIdlePitchers(Side side) {
    const SideFields fields = SideOf(board_, side);
    const bool over = moment_ == ProofMoment::Save && OutsInTheField(board_, side) > 0;
    for (int row = 1; row < fields.grid.rows(); ++row) {
      const std::string name(fields.grid.Text(row, kPitcher));
      const bool present = name == fields.pitcher.value();
      if (name.empty() || (present && !over)) continue;
      const auto outs = fields.outs.find(name);
      double figures = outs == fields.outs.end() ? 0 : outs->second;
      for (int column = kPitcher + 1; column <= kInningsPitched; ++column) {
        figures += std::abs(NumberOf(fields.grid.Text(row, column)));
      }
      if (figures > 0) continue;
      Add({FindingKind::IdlePitcher, side, row, kPitcher,
           name + " is among the pitchers of " + TeamOf(side) +
               ", but has no outs, batters or runs.",
           name, "", !present});
    }
  }

  void FindPlayersWithoutLine(Side side) {
    const LineupList& list = SideOf(board_, side).list;
    for (int row = 0; row < std::min(kStarters, list.size()); ++row) {
      if (IsOnSheet(board_, side, row)) continue;
      const std::string name = PlayerNameOf(list.entries()[static_cast<std::size_t>(row)]);
      Tell(FindingKind::NotOnSheet, side,
           name + " bats for " + TeamOf(side) +
               " but is not on the sheet, so nothing is counted for him.");
    }
  }

  void FindNames() {
    const StatGrid& visitors = board_.sheet.grd_VisStats;
    for (const Side side : kSides) {
      const StatGrid& grid = SideOf(board_, side).grid;
      for (int row = 1; row < grid.rows(); ++row) {
        const std::string name(grid.Text(row, kBatter));
        if (name.empty()) continue;
        const int visitor = visitors.FindRow(kBatter, name).value_or(0);
        const bool both = side == Side::Home && visitor > 0;
        if (both && FiguresOf(grid, row).empty() && FiguresOf(visitors, visitor).empty()) continue;
        if (both) {
          TellName(side, row,
                   name +
                       " bats for both teams, "
                       "so the at-bats of the home player go to the visitors' player.");
        } else if (grid.FindRow(kBatter, name) != row) {
          TellName(side, row,
                   name + " appears twice in " + TeamOf(side) +
                       "'s table, so all figures go to the first of them.");
        }
      }
    }
  }
  void TellName(Side side, int row, std::string words) {
    Add({FindingKind::SameName, side, row, kBatter, std::move(words), {}, {}, false});
  }

  void FindTexts() {
    for (const MisplacedText& text : TextWhereNumbersBelong(board_, NumberRows::Named)) {
      Add({FindingKind::TextForNumber,
           text.side,
           text.lineScore ? 0 : text.row,
           text.lineScore ? 0 : text.column,
           PlaceOf(board_, text) + ": \"" + text.text + "\" is not a number.",
           text.text,
           {},
           false});
    }
  }

  Board& board_;
  ProofMoment moment_;
  std::vector<Finding> findings_;
};

void PutRightOne(Board& board, const Finding& finding) {
  StatGrid& grid = SideOf(board, finding.side).grid;
  switch (finding.kind) {
    case FindingKind::BatterNotSaved:
      grid.SetText(finding.row, kPlayed, "1");
      board.log.Append("[proof] " + Name(grid, finding.row, kBatter) + " is saved");
      break;
    case FindingKind::InningsPitched:
    case FindingKind::NamelessInnings:
      grid.SetText(finding.row, kInningsPitched, finding.ought);
      board.log.Append("[proof] " + Name(grid, finding.row, kPitcher) + ": IP \"" + finding.now +
                       "\" becomes \"" + finding.ought + "\"");
      break;
    case FindingKind::IdlePitcher:
      EnterPitcher(grid, finding.row, "");
      board.log.Append("[proof] " + finding.now + " is not a pitcher in this game");
      break;
    case FindingKind::TotalOfRuns:
      ScoreUpdate(board);
      board.log.Append("[proof] R of " + SideOf(board, finding.side).sheetTeam.value() +
                       " becomes " + finding.ought);
      break;
    default:
      break;
  }
}

bool Same(const Finding& a, const Finding& b) {
  return a.kind == b.kind && a.side == b.side && a.row == b.row && a.ought == b.ought;
}

}  // namespace

std::vector<Finding> Prove(Board& board, ProofMoment moment) { return Proof(board, moment).All(); }

void PutRight(Board& board, ProofMoment moment, const std::vector<Finding>& findings) {
  const Gesture gesture(board, "Put right");
  // What is put right for one pitcher may leave more or less for the present one; twice is enough.
  bool all = true;
  for (int round = 0; round < 2 && all; ++round) {
    for (const Finding& now : Prove(board, moment)) {
      if (!now.canBePutRight) continue;
      const bool wanted =
          round > 0 || std::ranges::any_of(
                           findings, [&now](const Finding& finding) { return Same(finding, now); });
      all = all && wanted;
      if (wanted) PutRightOne(board, now);
    }
  }
}

std::string ProofSummary(const std::vector<Finding>& findings) {
  if (findings.empty()) return "In proof";
  return Counted(std::ssize(findings), "figure") + " to look at";
}

}  // namespace dtb
