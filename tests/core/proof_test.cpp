// The box score proves itself: what is found, and what is true once it was put right.
#include "fake_platform.h"
#include "sheet/reckoning.h"
// After the test library's own header, which the one above includes.
#include <rapidcheck/gtest.h>

#include <array>

#include "sheet/reckoning.h"

namespace dtb {
namespace {

TEST(Proof, FindsWhatDoesNotAgree) {
  Check("proof", R"(
A half-inning by the book, two by their outs alone, and one that ends before the third out.
1B RBI HR GO K FO => -
1B GO => L made 0 outs, 0.00 innings, but would be saved with 0.33. -> 0.00 @1,17;

A reserve who never stood on the first piece.
bat:v9 up:v BB GO GO GO => J has 1 BB but would not be saved. -> 1 @10,1;
bat:v9 up:v RBI HR GO GO GO => J has 1 HR, 1 RBI and 1 AB but would not be saved. -> 1 @10,1;
GO GO GO cell:v13,10=1 => A row without a name has 1 AB but would not be saved. @13,1;

Figures that were changed by hand.
1B GO GO GO cell:v1,4=2 => The batters of Owls have 2 hits, the H cell of the line score says 1,
  the pitchers of Elks 1.; A has 2 hits and 0 strikeouts in 1 at-bat. @1,10;
BB K K K cell:h1,13=4 => The batters of Owls have 1 walk, the pitchers of Elks 4.;
RBI HR 1B 1B GO GO GO type:v0=3 =>
  The innings of Owls add up to 3 runs, but the R cell says 1. -> 3;
RBI HR GO GO GO cell:v1,9=5 => The batters of Owls have 5 RBI, but the team scored 1 run.;
RBI HR GO GO GO cell:h1,16=5 => The pitchers of Elks have 5 earned runs, but Owls scored 1 run.;
GO GO GO cell:h1,17=6.1 => l made 3 outs, 1.00 innings, but would be saved with 6.1. -> 1.00 @1,17;
GO GO GO cell:h7,17=1.00 cell:h1,17=1.00 =>
  A row of Elks without a pitcher has 1.00 innings. ->  @7,17;
GO GO GO cell:h1,12=x => Elks, row 1 (l), column K: "x" is not a number. @1,12;
1B GO GO GO cell:v1,10= => A has 1 hit and 0 strikeouts in 0 at-bats. @1,10;
HR RBI GO GO GO => A has 1 home run but 0 RBI. A home run drives in the batter himself. @1,9;
GO GO GO type:v0=2 => The innings of Owls add up to 2 runs, but the R cell says 0. -> 2;
  The batters of Owls have 3 at-bats and walks, but Owls has 3 outs and 2 runs.
  A batter hit by a pitch or a sacrifice may explain it.;
GO GO GO cell:v1,10=9 => The batters of Owls have 11 at-bats and walks, but Owls has only 3 outs and
  0 runs, so 8 runners would have been left on base.;

MASTER:6 => The batters of Owls have 0 at-bats and walks, but Owls has 3 outs and 0 runs.
  A batter hit by a pitch or a sacrifice may explain it.; The batters of Elks have 0 at-bats and walks,
  but Elks has 3 outs and 0 runs. A batter hit by a pitch or a sacrifice may explain it.;

Pitchers named by mistake, before the first pitch and in mid-inning.
GO pitch:h9 pitch:h8 GO GO => j is among the pitchers of Elks, but has no outs, batters or runs.
  ->  @2,11;
GO pitch:h9 pitch:h8 GO GO right: => -
rewrite:vZ => Z bats for Owls but is not on the sheet, so nothing is counted for him.;

Put right: 8 outs of L, and 1 of J who came for him while the others batted.
GO GO GO bat:h0 GO GO GO bat:v0 GO pitch:v9 GO GO bat:h0 GO GO GO right: => -
bat:v9 up:v RBI HR GO GO GO right: => -
)");
  Check("due", R"(
=> v0
GO GO GO => due h0
GO GO GO bat:h0 => h0
GO GO GO bat:h0 GO GO GO => due v3
GO GO GO bat:h0 GO GO GO due: => v3
GO GO TO bat:h0 GO GO GO => due v2
GO GO GO bat:h8 GO GO GO bat:v3 K K K => due h2
GO rewrite:vZ => due v1
GO show:v5 => v1
)");
}

TEST(Proof, ComparesTheFiguresWithThePlays) {
  Check("proof", R"(
In proof: a batter hit by a pitch, a sacrifice and a runner from the bench are known.
keep:on 1ST SAC run:13 run:34 BB GO GO => -
keep:on on:J2 GO GO GO => -
keep:on HR HR GO GO GO bat:h0 AB 3B GO GO GO => -

The half-innings.
keep:on BB reset: GO GO GO => Top of inning 1: 4 came up, but 3 outs, 0 runs and 0 left on base are
  3.;
keep:on GO OUT:2 GO => Top of inning 1: 2 came up, but 3 outs, 0 runs and 0 left on base are 3.;

Line score, runs, RBI and earned runs.
keep:on HR GO GO GO type:v0=2 => The innings of Owls add up to 2 runs, but the R cell says 1. -> 2;
  The plays of Owls add up to 1 run, but the line score says 2.;
keep:on 3B RBI GO GO GO => The players of Owls scored 0 runs, but its plays add up to 1. A run that
  was counted with RBI names no runner.;
keep:on HR GO GO GO cell:v2,9=1 cell:h1,16=2 => The batters of Owls have 2 RBI, but the team scored
  1 run.; The pitchers of Elks have 2 earned runs, but Owls scored 1 run.; B has 1 RBI, but the plays
  give him 0. @2,9; l has 2 ER, but 1 earned run of the plays is his. @1,16;

Told by no play: the board did not keep the bases, or a half-inning has none.
keep:on HR GO keep:off GO GO cell:v1,9=0 => A has 1 home run but 0 RBI. A home run drives in the
  batter himself. @1,9;
keep:on HR GO GO GO MASTER:9 => The batters of Owls have 4 at-bats and walks, but Owls has 6 outs and
  1 run. A batter hit by a pitch or a sacrifice may explain it.; The batters of Elks have 0 at-bats and
  walks, but Elks has 3 outs and 0 runs. A batter hit by a pitch or a sacrifice may explain it.;
)");
}

TEST(Proof, CountsThoseLeftOnBase) {
  Game game;
  for (const char* label : {"1B", "BB", "BB", "RBI", "RBI", "RBI", "HR", "2B", "GO", "K", "GO"})
    game.Do(label);
  EXPECT_EQ(LeftOnBase(game.board, Side::Visitors), 2);
  EXPECT_EQ(LeftOnBase(game.board, Side::Home), 0);
  Game kept;  // of whom the figures know nothing
  kept.Play("keep:on 1ST SAC BB GO GO");
  EXPECT_EQ(LeftOnBase(kept.board, Side::Visitors), 2);
}

// Outcomes, ways of runners and changes of pitcher while the board keeps the bases.
RC_GTEST_PROP(Proof, FindsNothingInPlaysThatAreKept, ()) {
  const std::vector<std::string> gestures{
      "1B", "2B",     "3B",     "HR",     "BB",     "K",      "GO",      "FO",        "DP",
      "FC", "TO",     "AB",     "1ST",    "SAC",    "run:12", "run:23",  "run:34",    "run:31",
      "GO", "run:24", "run:13", "put:05", "put:14", "on:L2",  "pitch:h", "advance:34"};
  Game game;
  game.Do("keep:on");
  int pitcher = 11;
  const auto play = [&](const std::string& gesture) {
    if (gesture == "pitch:h") {
      // Each new player once, and not before the one before him has made an out.
      const auto& outs = game.state.HomeOuts;
      const std::string now(game.state.lbl_HomePitcher.value());
      if (pitcher > 9 && outs.contains(now)) game.Do(gesture + std::to_string(--pitcher));
    } else {
      game.Do(gesture);
    }
    if (game.state.BatterOf.value().empty()) {
      game.Do(game.state.Option5.value() ? "bat:v0" : "bat:h0");
    }
  };
  for (const int choice : *rc::gen::container<std::vector<int>>(
           rc::gen::inRange(0, static_cast<int>(gestures.size())))) {
    if (HalfInProgress(game.state) >= kHalves - 2) break;
    play(gestures.at(static_cast<std::size_t>(choice)));
  }
  for (int i = 0; i < 3 && game.state.tb_OUT.value() != "0"; ++i) play("GO");
  std::string found;
  for (const Finding& finding : Prove(game.board, ProofMoment::Save)) {
    const bool plays = finding.kind == FindingKind::Plays;
    if (plays || finding.kind == FindingKind::Appearances) found += finding.words + '\n';
  }
  RC_ASSERT(found == "");
}

// Outcomes and changes of pitcher in the field alone, each new player once; -1 for a change.
RC_GTEST_PROP(Proof, FindsNothingThatIsNotSo, ()) {
  const auto choices = *rc::gen::scale(2.0, rc::gen::container<std::vector<int>>(rc::gen::inRange(
                                                -1, static_cast<int>(kLabels.size()))));
  Game game;
  std::map<std::string, int> counted;
  std::array<std::string, 2> pitchers{"L", "l"};
  std::array<int, 2> nextPitcher{10, 10}, nextBatter{0, 0};
  int outs = 0, half = 0, onBase = 0;
  // Baseball: with a player on base alone somebody is thrown out or comes home.
  const auto possible = [&](const std::string& label) {
    const bool needsRunner = label == "DP" || label == "FC" || label == "TO" || label == "RBI";
    if (needsRunner && onBase == 0) return false;
    if (label == "DP" || label == "TO" || label == "RBI") --onBase;
    const bool reaches = label == "BB" || label == "AB" || (label != "HR" && label[1] == 'B');
    if (label == "HR" || (reaches && onBase == 3)) game.Do("RBI");
    if (reaches && onBase < 3 && label != "RBI") ++onBase;
    return true;
  };
  const auto play = [&](const std::string& label) {
    if (!possible(label)) return;
    game.Do(label);
    const bool refused = outs == 2 && (label == "DP" || label == "FC");
    const bool out = label == "K" || label == "DP" || label == "FC" || label == "TO" ||
                     (label.size() == 2 && label[1] == 'O');
    const int made = !out || refused ? 0 : (label == "DP" ? 2 : 1);
    counted[pitchers.at(half % 2 == 0 ? 1 : 0)] += made;
    outs += made;
    if (outs < 3) return;
    outs = onBase = 0;
    nextBatter.at(half % 2) = (game.board.state.lbl_Selected.value().front() | 0x20) - 'a' + 1;
    ++half;
    const char side = half % 2 == 0 ? 'v' : 'h';
    game.Do(std::string("bat:") + side + std::to_string(nextBatter.at(half % 2) % kStarters));
  };
  for (const int choice : choices) {
    if (half >= kHalves - 2) break;
    const std::size_t fielding = half % 2 == 0 ? 1 : 0;
    if (choice >= 0) {
      play(kLabels.at(static_cast<std::size_t>(choice)));
    } else if (nextPitcher.at(fielding) >= kStarters && counted[pitchers.at(fielding)] > 0) {
      const int row = nextPitcher.at(fielding)--;
      game.Do(std::string("pitch:") + (fielding == 0 ? 'v' : 'h') + std::to_string(row));
      pitchers.at(fielding) = std::string(1, static_cast<char>((fielding == 0 ? 'A' : 'a') + row));
      play("GO");
    }
  }
  while (outs > 0) play("GO");
  RC_ASSERT(game.Look("proof").empty());
  for (const PitchedOuts& known : {game.state.VisOuts, game.state.HomeOuts}) {
    for (const auto& [pitcher, made] : known) RC_ASSERT(counted[pitcher] == made);
  }
}

RC_GTEST_PROP(Proof, IsPutRightOnceAndTakenBackWhole, ()) {
  const std::vector<std::string> gestures{"1B",
                                          "HR",
                                          "K",
                                          "GO",
                                          "DP",
                                          "RBI",
                                          "BB",
                                          "OUT:2",
                                          "GO",
                                          "K",
                                          "toggle:v",
                                          "bat:v9",
                                          "up:v",
                                          "pitch:v9",
                                          "pitch:h9",
                                          "pitch:v10",
                                          "GO",
                                          "K",
                                          "atbat:h",
                                          "bat:h2",
                                          "atbat:v",
                                          "bat:v3",
                                          "free:p0",
                                          "cell:h1,17=6.1",
                                          "GO",
                                          "K",
                                          "cell:v2,17=x",
                                          "cell:v5,17=1.00",
                                          "type:v0=7",
                                          "pitch:h11",
                                          "OUT:0"};
  Game game;
  for (const int choice : *rc::gen::container<std::vector<int>>(
           rc::gen::inRange(0, static_cast<int>(gestures.size())))) {
    game.Do(gestures.at(static_cast<std::size_t>(choice)));
  }
  const std::string before = GameText(game.board);
  const std::size_t steps = game.history.steps();
  game.Do("right:");
  for (const Finding& left : Prove(game.board, ProofMoment::Save)) RC_ASSERT(!left.canBePutRight);
  if (game.history.steps() > steps) game.Do("undo:");
  RC_ASSERT((GameText(game.board) == before));
}

}  // namespace
}  // namespace dtb
