// Natural slips: what is recorded is asked about before it goes to a player who does not bat.
#include "core/fake_platform.h"

namespace dtb {
namespace {

TEST(Guard, AsksWhereNobodyBatsAndRecordsForWhoIsMeant) {
  Check("counters log told clock", R"(
Nobody was chosen since the third out.
K K K 1B => A K=1, A AB=1, L H=1, B K=1, B AB=1, C K=1, C AB=1, a 1B=1, a AB=1, l K=3, 0:1
  / A=x_____K;B=x_____K;C=x_____K;[0.5];a=x_____1B;
  / OUT recorded. | OUT recorded. | OUT recorded. | END OF INNING.
  | Nobody bats yet. a is due. [a bats] [Back] | HIT recorded. / 0 3 H b
GO GO GO answer:back RBI => A AB=1, B AB=1, C AB=1, 0:0 / A=x_____GO;B=x_____GO;C=x_____GO;[0.5];
  / OUT recorded. | OUT recorded. | OUT recorded. | END OF INNING.
  | Nobody bats yet. a is due. [a bats] [Back] / 0 3 H C

EDIT was left on, of the side at bat alone.
1B edit:v K => A 1B=1, A AB=1, B K=1, B AB=1, l K=1, l H=1, 1:0 / A=x_____1B;B=x_____K;
  / HIT recorded. | EDIT is on, so the batter stays the same. [Turn EDIT off] [Back]
  | OUT recorded. / 1 0 V C
edit:v answer:back HR => 0:0 / -
  / EDIT is on, so the batter stays the same. [Turn EDIT off] [Back] / 0 0 V A
edit:h GO => A AB=1, 0:0 / A=x_____GO; / OUT recorded. / 1 0 V B

The batter was replaced, with EDIT or without, and the substitute was not clicked.
edit:v drag:v11 drop:v0 drag:v1 drop:v11 edit:v K => L K=1, L AB=1, L =1, l K=1, 0:0 / L=x_____K;
  / A has left the order; L stands in his place. [L bats] [Back] | OUT recorded. / 1 0 V B
edit:v drag:v11 drop:v0 drag:v1 drop:v11 GO => L AB=1, L =1, 0:0 / L=x_____GO;
  / EDIT is on, and A has left the order; L stands in his place. [L bats] [Back] | OUT recorded.
  / 1 0 V B
K K K edit:h BB => A K=1, A AB=1, L BB=1, B K=1, B AB=1, C K=1, C AB=1, a BB=1, l K=3, 0:0
  / A=x_____K;B=x_____K;C=x_____K;[0.5];a=x_____BB;
  / OUT recorded. | OUT recorded. | OUT recorded. | END OF INNING.
  | EDIT is on, and nobody bats yet. a is due. [a bats] [Back] | Stat Recorded. / 0 3 H b
edit:v drag:v8 drop:v0 edit:v GO => A AB=1, 0:0 / A=x_____GO; / OUT recorded. / 1 0 V B

AT BAT was moved by a slip; a run of the side in the field is asked about once a game.
1B atbat:h GO => A 1B=1, A AB=1, B AB=1, l H=1, 1:0 / A=x_____1B;B=x_____GO;
  / HIT recorded. | AT BAT of Elks is on, but the top of inning 1 belongs to Owls. [B bats] [Back]
  | OUT recorded. / 1 0 V C
K K K atbat:v GO => A K=1, A AB=1, B K=1, B AB=1, C K=1, C AB=1, a AB=1, l K=3, 0:0
  / A=x_____K;B=x_____K;C=x_____K;[0.5];a=x_____GO;
  / OUT recorded. | OUT recorded. | OUT recorded. | END OF INNING.
  | AT BAT of Owls is on, but this team batted last. a is due. [a bats] [Back]
  | OUT recorded. / 1 3 H b
atbat:h bat:h0 RBI RBI => L ER=2, a RBI=2, 0:0 / a=x_____RBI;a=x_____RBI;
  / Elks is at bat in the top of inning 1, so the run goes into the line of Owls. [Record it] [Back]
  | Stat Recorded. | Stat Recorded. / 0 0 H a
)");
}

TEST(Guard, LetsALookChangeNothing) {
  Check("due clock log", R"(
1B row:v10 GO => v2 / 1 0 V C / A=x_____1B;B=x_____GO;
1B show:v6 GO => v2 / 1 0 V C / A=x_____1B;B=x_____GO;
1B row:v10 due: => v1 / 0 0 V B / A=x_____1B;
1B edit:v row:v6 rewrite:vG=hurt edit:v K => v2 / 1 0 V C / A=x_____1B;B=x_____K;
1B pitch:v10 GO => v2 / 1 0 V C / A=x_____1B;K_____[current pitcher];B=x_____GO;
GO GO GO pitch:h10 => due h0 / 0 3 H C
  / A=x_____GO;B=x_____GO;C=x_____GO;[0.5];k_____[current pitcher];
GO GO GO bat:h0 GO GO GO pitch:v10 due: GO => v4 / 1 6 V E
  / A=x_____GO;B=x_____GO;C=x_____GO;[0.5];a=x_____GO;b=x_____GO;c=x_____GO;[1];K_____[current pitcher];D=x_____GO;
GO GO GO edit:h due: => h0 / 0 3 H a / A=x_____GO;B=x_____GO;C=x_____GO;[0.5];
MASTER:117 atbat:h bat:h0 GO GO GO due: GO GO GO atbat:h => due h3 / 0 120 H C
  / a=x_____GO;b=x_____GO;c=x_____GO;[20];A=x_____GO;B=x_____GO;C=x_____GO;[20];
)");
  Game game;
  game.Play("1B GO");
  game.Load(Side::Visitors, "Owls.txt", "A\nB\nC=new\nD");
  EXPECT_EQ(game.Look("due") + " " + game.Look("order"), "v2 ABCD2 abcdefghijkl0");
  game.Load(Side::Visitors, "Crows.txt", "P\nQ\nR\nS");
  EXPECT_EQ(game.Look("due"), "due v2");
  game.Look("told");
  game.Do("GO");
  EXPECT_EQ(game.Look("told"),
            "C has left the order; R stands in his place. [R bats] [Back] | OUT recorded.");
}

// The same name made the last out for the other side.
TEST(Guard, DoesNotTakeANamesakeForTheBatter) {
  Game game;
  game.Load(Side::Home, "Elks.txt", "C\nD\nE\nF\nG\nH\nI\nJ\nK\nl");
  game.Play("GO GO GO");
  EXPECT_EQ(game.Look("due"), "due h0");
  game.Do("due:");
  EXPECT_EQ(game.Look("due"), "h0");
}

TEST(Guard, ChangesNothingWithBackAndTakesBackTheRemedyWithTheOutcome) {
  Game game;
  game.Play("GO GO GO answer:back");
  const GameMemento before = Remember(game.board);
  const std::size_t steps = game.history.steps();
  for (const std::string& label : kLabels) game.Do(label);
  EXPECT_TRUE(Remember(game.board) == before);
  EXPECT_EQ(game.history.steps(), steps);
  game.Play("answer:first 1B undo:");
  EXPECT_EQ(game.Look("due"), "due h0");
}

TEST(Outs, TypedAsThreeEndTheHalfWhenThePersonSaysYes) {
  Check("clock due log score told", R"(
1B typedthree: => 0 0 V B / v1 / A=x_____1B; / 0:0 / HIT recorded. | OUTS
yes:y 1B typedthree: => 0 3 H B / due h0 / A=x_____1B;[0.5]; / 0=0* 0:0
  / HIT recorded. | OUTS | END OF INNING.
yes:y typedthree: bat:h0 GO GO GO due: => 0 6 V A / v0
  / [0.5];a=x_____GO;b=x_____GO;c=x_____GO;[1]; / 0=0* 1=0* 0:0
  / OUTS | END OF INNING. | OUT recorded. | OUT recorded. | OUT recorded. | END OF INNING.
)");
}

}  // namespace
}  // namespace dtb
