// The board keeps the bases: who moves by himself, who is moved, and who gets what for a run.
#include "fake_platform.h"
#include "game/game_pieces.h"
#include "game/keep_bases.h"

namespace dtb {
namespace {

TEST(KeptBases, MoveWhomAnOutcomeMoves) {
  Check("bases score play", R"(
keep:on BB => A - - / 0:0 / A walks
keep:on BB BB => B A - / 0:0 / B walks, A goes to second
keep:on 2B BB => B A - / 0:0 / B walks
keep:on 3B BB => B - A / 0:0 / B walks
keep:on BB BB BB BB => D C B / 0=1 1:0 / D walks, A scores from third, B goes to third,
  C goes to second
keep:on BB 1B => B A - / 0:0 / B singles, A goes to second
keep:on BB 2B => - B A / 0:0 / B doubles, A goes to third
keep:on 2B 2B => - B - / 0=1 1:0 / B doubles, A scores from second
keep:on BB BB BB 3B => - - D / 0=3 3:0 / D triples, A scores from third, B scores from second,
  C scores from first
keep:on BB BB HR => - - - / 0=3 3:0 / C homers, A scores from second, B scores from first
keep:on 3B AB => B - - / 0=1 1:0 / B reaches on an error, A scores from third
keep:on 3B K => - - A / 0:0 / B strikes out
keep:on BB FC => B - - / 0:0 / B reaches on a fielder's choice, A is out on the bases
keep:on BB BB FC => C B - / 0:0 / C reaches on a fielder's choice, A is out on the bases,
  B goes to second
keep:on 2B FC => B - - / 0:0 / B reaches on a fielder's choice, A is out on the bases
keep:on 3B BB FC => C - A / 0:0 / C reaches on a fielder's choice, B is out on the bases
keep:on BB BB BB FC:1 => D B A / 0:0 / D reaches on a fielder's choice, C is out on the bases
keep:on BB BB DP => - A - / 0:0 / C hits into a double play, B is out on the bases
keep:on 3B DP => - - - / 0:0 / B hits into a double play, A is out on the bases
keep:on BB TO => - - - / 0:0 / A is out on the bases
keep:on BB BB TO => B - - / 0:0 / A is out on the bases
keep:on BB BB TO:1 => - A - / 0:0 / B is out on the bases
keep:on BB SB:A => - A - / 0:0 / A steals second
keep:on 3B SB:A => - - - / 0=1 1:0 / A steals home
keep:on BB 1ST => B A - / 0:0 / B takes first without an at-bat, A goes to second
keep:on 3B SAC run:34 => - - - / 0=1 1:0 / B is out without an at-bat, A scores from third
keep:on BB GO GO GO => - - - / 0=0* 0:0 / D grounds out
)");
}

TEST(KeptBases, GiveTheRunToWhomItBelongs) {
  Check("runs counters", R"(
keep:on HR => A for A, batted in, l, earned; / A HR=1, A RBI=1, A AB=1, l H=1, l HR=1, l ER=1, 1:0
keep:on 3B FO run:34 => A for B, batted in, l, earned; / A 3B=1, A AB=1, B RBI=1, B AB=1, l H=1,
  l ER=1, 1:0
keep:on 3B advance:34 => A for B, l, earned; / A 3B=1, A AB=1, l H=1, l ER=1, 1:0
keep:on AB 3B => A for B, batted in, l; / A AB=1, B 3B=1, B RBI=1, B AB=1, l H=1, 1:0
keep:on 3B AB => A for B, l; / A 3B=1, A AB=1, B AB=1, l H=1, 1:0
keep:on AB GO GO HR => A for D, batted in, l;D for D, batted in, l; / A AB=1, B AB=1, C AB=1,
  D HR=1, D RBI=2, D AB=1, l H=1, l HR=1, 1:0
keep:on 3B BB run:34 => A for B, l, earned; / A 3B=1, A AB=1, B BB=1, l BB=1, l H=1, l ER=1, 1:0
keep:on 3B DP run:34 => - / A 3B=1, A AB=1, B AB=1, l H=1, 1:0
keep:on 3B BB DP run:34 => A for C, l, earned; / A 3B=1, A AB=1, B BB=1, C AB=1, l BB=1, l H=1,
  l ER=1, 1:0
keep:on BB pitch:h10 HR => A for B, batted in, l, earned;B for B, batted in, k, earned; / A BB=1,
  B HR=1, B RBI=2, B AB=1, l BB=1, l ER=1, l IP=0.00, k H=1, k HR=1, k ER=1, 1:0
keep:on BB pitch:h10 FC HR => B for C, batted in, l, earned;C for C, batted in, k, earned; / A BB=1,
  B AB=1, C HR=1, C RBI=2, C AB=1, l BB=1, l ER=1, l IP=0.00, k H=1, k HR=1, k ER=1, 1:0
keep:on BB pitch:h10 BB BB FC HR => B for E, batted in, l, earned;C for E, batted in, k, earned;D
  for E, batted in, k, earned;E for E, batted in, k, earned; / A BB=1, B BB=1, C BB=1, D AB=1,
  E HR=1, E RBI=4, E AB=1, l BB=1, l ER=1, l IP=0.00, k BB=2, k H=1, k HR=1, k ER=3, 1:0
keep:on AB GO GO pitch:h10 HR => A for D, batted in, l;D for D, batted in, k, earned; / A AB=1,
  B AB=1, C AB=1, D HR=1, D RBI=2, D AB=1, l IP=0.67, k H=1, k HR=1, k ER=1, 1:0
keep:on on:J2 1B run:34 => J for A, batted in, l; / A 1B=1, A RBI=1, A AB=1, l H=1, 1:0
BB keep:on put:03 1B => A for B, batted in, l, earned; / A BB=1, B 1B=1, B RBI=1, B AB=1, l BB=1,
  l H=1, l ER=1, 1:0
keep:on 3B in:v90 1B => J for B, batted in, l, earned; / A 3B=1, A AB=1, B 1B=1, B RBI=1, B AB=1,
  J =1, l H=2, l ER=1, 2:0
keep:on HR batted:000 earned:000 => A for A, l; / A HR=1, A AB=1, l H=1, l HR=1, 1:0
keep:on HR batted:000 undo:x => A for A, batted in, l, earned; / A HR=1, A RBI=1, A AB=1, l H=1,
  l HR=1, l ER=1, 1:0
3B RBI => - / A 3B=1, A AB=1, B RBI=1, l H=1, l ER=1, 1:0
)");
}

TEST(KeptBases, TellWhatCannotBeAndLeaveItUndone) {
  struct Case {
    const char* before;
    const char* gesture;
    const char* told;
  };
  for (const auto& [before, gesture, told] : {
           Case{"BB BB", "run:13", "A is on second; B cannot pass him."},
           {"BB BB", "run:12", "A is on second; B cannot go there."},
           {"2B BB", "run:21", "B is on first; A cannot go there."},
           {"BB", "run:23", "Nobody is on second."},
           {"BB BB", "SB:B", "A is on second, so B cannot steal it."},
           {"BB", "SB:B", "B is on no base, so he steals none."},
           {"BB", "on:J1", "A is on first."},
           {"BB", "on:A2", "A is on base already."},
           {"BB", "on:B2", "B bats."},
           {"BB", "put:12", "Click the hit that takes B there."},
           {"", "FC",
            "The board has nobody on base who could be out. Drag a runner's piece to "
            "his base first."},
           {"GO GO GO atbat:h bat:h0 BB atbat:v bat:v4 GO GO GO", "run:12", "Nobody is on first."},
       }) {
    Game game;
    game.Play(std::string("keep:on ") + before);
    const std::string state = GameText(game.board);
    game.Look("told");
    game.Look("notices");
    game.Play(gesture);
    const std::string heard = game.Look("told") + game.Look("notices");
    EXPECT_NE(heard.find(told), std::string::npos) << before << ' ' << gesture << ": " << heard;
    EXPECT_EQ(GameText(game.board), state) << before << ' ' << gesture;
  }
}

TEST(KeptBases, TellWhoMovedUnlessHeIsBackWhereHeWas) {
  for (const auto& [before, gesture, told] :
       {std::tuple{"BB", "run:12", "A goes to second;"},
        {"3B SAC", "run:34", "A scores from third, batted in by B;"},
        {"2B BB run:23", "run:32", ""}}) {
    Game game;
    game.Play(std::string("keep:on ") + before);
    game.Look("notices");
    game.Play(gesture);
    EXPECT_EQ(game.Look("notices"), told) << before << ' ' << gesture;
  }
}

TEST(KeptBases, LightUpWhereAPieceMayGo) {
  Game game;
  game.Play("keep:on BB BB");  // A on second, B on first, C bats
  using Places = std::vector<int>;
  for (const auto& [name, places] :
       {std::pair{"A", Places{2, 3, 4, 5}}, {"B", Places{1, 5}}, {"C", Places{1, 5}}}) {
    EXPECT_EQ(PlacesFor(game.state, PieceOf(game.state, name)), places) << name;
  }
  EXPECT_EQ(PlacesFor(game.state, std::nullopt), Places{3});
}

TEST(KeptBases, GoBackStepByStep) {
  Check("bases score play steps", R"(
keep:on BB run:12 run:23 run:31 => A - - / 0:0 / A walks / 4 to first, A;
keep:on BB run:12 run:24 undo:x => - A - / 0:0 / A walks, A goes to second / 2 to second, A;to home, A
keep:on BB BB FC instead:B => C A - / 0:0 / C reaches on a fielder's choice, B is out on the bases / 3
  FC, C;
keep:on BB BB DP instead:A => B - - / 0:0 / C hits into a double play, A is out on the bases / 3 DP, C;
keep:on BB BB TO:1 instead:A => B - - / 0:0 / A is out on the bases / 3 TO, A;
keep:on BB BB FC instead:A => C B - / 0:0 / C reaches on a fielder's choice, A is out on the bases,
  B goes to second / 3 FC, C;
keep:on BB BB FC run:23 instead:B => C - B / 0:0 / C reaches on a fielder's choice, A is out on the
  bases, B goes to third / 4 to third, B;
keep:on BB BB FC undo:x row:v5 instead:B => B A - / 0:0 / B walks, A goes to
  second / 3 row, F;
keep:on 2B 2B hold: => - B A / 0:0 / B doubles, A goes to third / 3 back to third, A;
keep:on 3B AB hold: => B - A / 0:0 / B reaches on an error / 3 back to third, A;
keep:on 2B BB 3B hold: => - - C / 0=2 2:0 / C triples, A scores from second, B scores from first / 3 3B, C;
keep:on BB HR hold: => - - - / 0=2 2:0 / B homers, A scores from first / 2 HR, B;
keep:on BB put:02 put:13 => - A - / 0:0 / A walks, A goes to second / 2 to second, A;
keep:on BB put:11 put:05 => B - - / 0:0 / A is out on the bases / 3 TO, A;
keep:on BB put:15 => A - - / 0:0 / B is out without an at-bat / 2 SAC, B;
)");
}

TEST(KeptBases, HaveAPieceForEachRunnerAndForTheBatter) {
  Check("pieces", R"(
keep:on BB BB BB BB => E:E B:B C:C D:D
keep:on photo:B BB BB HR => D:D B: C: :
keep:on photo:A photo:C BB FC BB => C:#* B:B D:D :
keep:on bat:v3 bat:v0 BB => A:A B:B : :
keep:on BB reset: BB => B:B C:C : :
keep:on BB bat:v0 => A:A B: : :
BB BB BB keep:on on:J1 => J:J B:B C:C D:D
)");
  // One whose player was taken off is free for them, too, though its photo waits for a reset.
  Game game;
  game.Play("photo:B BB BB");
  TakeOffBoard(game.board, "B");
  game.Play("BB keep:on BB");
  for (const char* name : {"D", "E"}) EXPECT_TRUE(PieceOf(game.state, name)) << name;
  // Who has two when the board begins to keep the bases is left one.
  Game twice;
  twice.Play("bat:v1 bat:v0 bat:v1 keep:on");
  KeepBasesClicked(twice.board);
  EXPECT_EQ(std::ranges::count_if(twice.state.pieces, &GamePiece::free), 2);
}

TEST(Pieces, StandWithTheirMiddleWhereTheyAreMoved) {
  Game game;
  const double x = kSceneWidth / 2.0;
  const double y = kSceneHeight / 3.0;
  MovePiece(game.board, 2, x, y);
  const GamePiece& piece = game.state.pieces[2];
  EXPECT_DOUBLE_EQ(piece.left.value() + game.state.pieceWidth.value() / 2, x);
  EXPECT_DOUBLE_EQ(piece.top.value() + game.state.pieceHeight.value() / 2, y);
}

// A reserve with whom the half-inning begins has a run that is saved with him.
TEST(KeptBases, WhoBeginsOnABaseTakesPart) {
  Game game;
  game.Play("keep:on begin:v92");
  EXPECT_EQ(game.Look("bases") + game.Look("counters"), "- J -J =1, 0:0");
}

}  // namespace
}  // namespace dtb
