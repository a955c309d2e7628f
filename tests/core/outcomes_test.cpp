// What each outcome label records, for whom, and in which order.
#include "fake_platform.h"

namespace dtb {

TEST(Outcomes, RecordCountersLogLineAndBoxesAndMoveOn) {
  Check("counters log told clock pieces", R"(
1B => A 1B=1, A AB=1, l H=1, 1:0 / A=x_____1B; / HIT recorded. / 0 0 V B / A:A B:B : :
2B => A 2B=1, A AB=1, l H=1, 1:0 / A=x_____2B; / HIT recorded. / 0 0 V B / A:A B:B : :
3B => A 3B=1, A AB=1, l H=1, 1:0 / A=x_____3B; / HIT recorded. / 0 0 V B / A:A B:B : :
HR => A HR=1, A AB=1, l H=1, l HR=1, 1:0 / A=x_____HR; / HIT recorded. / 0 0 V B / A:A B:B : :
BB => A BB=1, l BB=1, 0:0 / A=x_____BB; / Stat Recorded. / 0 0 V B / A:A B:B : :
K => A K=1, A AB=1, l K=1, 0:0 / A=x_____K; / OUT recorded. / 1 0 V B / B:B : : :
GO => A AB=1, 0:0 / A=x_____GO; / OUT recorded. / 1 0 V B / B:B : : :
DP => A AB=1, 0:0 / A=x_____DP; / OUT recorded. / 2 0 V B / B:B : : :
FC => A AB=1, 0:0 / A=x_____FC; / OUT recorded. / 1 0 V B / A:A B:B : :
TO => 0:0 / A=x_____TO; / OUT recorded. / 1 0 V A / A:A : : :
AB => A AB=1, 0:0 / A=x_____AB [ERR]; / At-Bat recorded. / 0 0 V B / A:A B:B : :
RBI => A RBI=1, l ER=1, 0:0 / A=x_____RBI; / Stat Recorded. / 0 0 V A / A:A : : :

At two outs a double play leaves its log line, a fielder's choice nothing.
OUT:2 DP => 0:0 / A=x_____DP; / There are already 2 outs. / 2 0 V A / A:A : : :
OUT:2 FC => 0:0 / - / i: FC requires < 2 outs. Use GO if it's the 3rd out. / 2 0 V A / A:A : : :

The home team's players count in their own table, against the visitors' pitcher.
atbat:h bat:h0 HR => L H=1, L HR=1, a HR=1, a AB=1, 0:1 / a=x_____HR; / HIT recorded. / 0 0 H b
  / A:A a:a b:b :

A batter who was typed into the order gets a row.
rewrite:vZ bat:v0 1B => Z 1B=1, Z AB=1, l H=1, 1:0 / Z_____1B; / HIT recorded. / 0 0 V B / A:A Z:Z B:B :
rewrite:vZ bat:v0 LO => Z AB=1, 0:0 / Z_____LO; / OUT recorded. / 1 0 V B / A:A B:B : :

The order goes on from the batter, wherever the highlight is.
bat:v8 BB => I BB=1, l BB=1, 0:0 / I=x_____BB; / Stat Recorded. / 0 0 V A / A:A I:I A:A :
bat:v9 PO => A AB=1, 0:0 / A=x_____PO; / OUT recorded. / 1 0 V B / B:B : : :
bat:v11 BB => A BB=1, l BB=1, 0:0 / A=x_____BB; / Stat Recorded. / 0 0 V B / A:A B:B : :

A reserve has played once he is the player on the first piece. A nameless piece marks nobody.
reset: bat:v9 up:v GO => J AB=1, J =1, 0:0 / J=x_____GO; / OUT recorded. / 1 0 V A / A:A : : :
bat:v9 up:v free:p0 GO => J AB=1, 0:0 / J=x_____GO; / OUT recorded. / 1 0 V A / A:A J: : :
)");
}

TEST(Outcomes, TheThirdOutEndsTheHalfWhicheverLabelMakesIt) {
  Check("counters log clock score pieces", R"(
OUT:2 K => A K=1, A AB=1, l K=1, 0:0 / A=x_____K;[0.5]; / 0 3 H A / 0=0* 0:0 / A: : : :
OUT:1 DP => A AB=1, 0:0 / A=x_____DP;[0.5]; / 0 3 H A / 0=0* 0:0 / A: : : :
OUT:2 TO => 0:0 / A=x_____TO;[0.5]; / 0 3 H A / 0=0* 0:0 / A: : : :
1B RBI OUT:2 FO => A 1B=1, A AB=1, B RBI=1, B AB=1, l H=1, l ER=1, 1:0
  / A=x_____1B;B=x_____RBI;B=x_____FO;[0.5]; / 0 3 H B / 0=1* 1:0 / A: B: : :

Until a batter of the new side is chosen the old name is foreign to it.
OUT:3 1B => L H=1, a 1B=1, a AB=1, 0:1 / a=x_____1B; / 3 3 H b / 0=0* 0:0 / A:A a:a b:b :
OUT:3 RBI => L ER=1, a RBI=1, 0:0 / a=x_____RBI; / 3 3 H a / 0=0* 1=1 0:1 / A:A a:a : :
OUT:3 OUT:0 GO => a AB=1, 0:0 / a=x_____GO; / 1 3 H b / 0=0* 0:0 / A:A b:b : :
)");
  Game game;  // each step waits for the boxes before it
  game.Play("1B OUT:2");
  game.fake.whileOpen = [&] {
    const bool first = game.Look("told").ends_with("| OUT recorded.");
    EXPECT_EQ(game.Look("clock"), "3 3 H B");
    EXPECT_EQ(game.Look("pieces"), first ? "A:A B:B : :" : "A:A B: : :");
    EXPECT_EQ(game.Look("log"), first ? "A=x_____1B;B=x_____GO;" : "");
  };
  game.Do("GO");
}

TEST(Outcomes, AreDeadWithoutTeamsAndRefusedWithoutPitchersOrBatter) {
  const std::string warning =
      "left: Both pitchers must be selected first. 'AT BAT' button must be selected. Then first "
      "batter must be selected.";
  for (const std::string& label : kLabels) {
    for (const std::string lack : {"unload:v", "unload:h", "unpitch:v", "unpitch:h", "unbat:v"}) {
      if (label == "AB" && lack.starts_with("unpitch")) continue;
      Check("log counters score told",
            lack + " " + label + " => - / 0:0 / 0:0 / " + (lack[2] == 'l' ? "-" : warning));
    }
  }
}

TEST(Outcomes, CountAtBatsForTheVisitorsFirst) {
  Game game;
  game.Load(Side::Home, "Elks.txt", "A\nC");
  game.Play("atbat:h bat:h0 AB AB");
  EXPECT_EQ(game.Look("counters"), "A AB=1, C AB=1, 0:0");
  EXPECT_EQ(game.sheet.grd_VisStats.Text(1, stat_column::kAtBats), "1") << "of the same name";
  EXPECT_EQ(game.Look("clock"), "0 0 H A") << "after the last player of a short list";
}

}  // namespace dtb
