// The clock of the game, the line score and the sheet.
#include "fake_platform.h"
#include "sheet/cell_edit.h"

namespace dtb {

TEST(TextCells, ReadTheNumberInFront) {
  const std::map<std::string, std::string> cases{
      {"", "0 - 1"},    {"x", "0 - 1"},    {" 12x", "12 - 13"},   {" 7\r\n", "7 8"},
      {"+4", "4 5"},    {"-3", "-3 -2"},   {"- 3", "0 - 1"},      {".5", "0.5 1.5"},
      {"inf", "0 - 1"}, {"-nan", "0 - 1"}, {"1e2", "100 101"},    {"0x10", "0 - 1"},
      {"1e999", "0 1"}, {"+-3", "0 - 1"},  {"2.33 ", "2.33 3.33"}};
  for (const auto& [text, expected] : cases) {
    const auto whole = WholeNumberOf(text);
    EXPECT_EQ(DecimalText(NumberOf(text)) + (whole ? " " : " - ") + RaisedText(text), expected)
        << text;
    EXPECT_EQ(whole.value_or(NumberOf(text)), NumberOf(text));
  }
  EXPECT_EQ(TwoDecimals(7 / 3.0) + TwoDecimals(4) + TwoDecimals(-0.001), "2.334.000.00");
  EXPECT_EQ(DecimalText(1e300).size(), 301U);
  // Two hand-typed figures of 1e308 add up beyond all numbers.
  EXPECT_EQ(DecimalText(1e308 + 1e308).size(), 309U);
  EXPECT_EQ(TwoDecimals(1e308 + 1e308).size(), 312U);
}

TEST(Innings, FollowTheTwoCounters) {
  Check("clock score told", R"(
OUT:12 => 3 3 H A / 0=0* 0:0 / -
OUT:03 => 3 3 H A / 0=0* 0:0 / -
OUT:3 OUT:7 => 3 6 V A / 0=0* 1=0* 0:0 / -
OUT:x => x 0 V A / 0:0 / -
MASTER:8 => 0 8 V A / 0=* 1=* 0:0 / -
MASTER:7 OUT:3 => 3 10 H A / 0=* 1=* 2=* 0:0 / -
MASTER:6 OUT:1 => 1 6 V A / 0=* 1=0* 0:0 / -
MASTER:6 MASTER:-3 => 0 0 V A / 0:0 / -
MASTER:6 MASTER: => 0  V A / 0=* 1=* 0:0
  / w: Only numbers 0 and higher are allowed. An error has occurred.
OUT:3 toggle:v0 OUT:1 => 1 3 H A / 0=0* 0:0 / -
toggle:v19 toggle:h0 toggle:h0 => 0 0 V A / 38=* 0:0 / -
MASTER:3 RBI RBI => 0 3 V A / 0=* 1=2 0:2 / Owls is at bat in the bottom of inning 1, so the run goes into the line of Elks. [Record it] [Back] | Stat Recorded. | Stat Recorded.
MASTER:6 RBI => 0 6 V A / 0=* 1=* 2=1 1:0 / Stat Recorded.
MASTER:117 RBI MASTER:0 => 0 0 V A / 39=1 0:1 / Owls is at bat in the bottom of inning 20, so the run goes into the line of Elks. [Record it] [Back] | Stat Recorded.
OUT:2 MASTER:117 GO MASTER:0 => 0 0 H A / 39=0 0:0 / OUT recorded. | END OF INNING.
  | i: Maximum INNINGS reached. Use manual scoring to complete game.
MASTER:120 RBI MASTER:1e300 RBI MASTER:0 => 0 0 V A / 0:0 / Stat Recorded. | Stat Recorded.

The score pad works on the cell that took the focus; totals follow.
digit:5 => 0 0 V A / 0:0 / -
focus:v3 digit:1 digit:2 focus:v3 digit:5 digit:7 => 0 0 V A / 6=57 12:0 / -
focus:h0 digit:4 focus:h22 digit:1 => 0 0 V A / 1=4 0:4 / -
type:v0=x type:v1=2y type:h20=9 reset: => 0 0 V A / 0=x 2=2y 2:0 / -
)");
}

TEST(Innings, OfPitchersAreSettledWhenTheyLeave) {
  // "MASTER:12" finishes two halves of each side.
  Check("counters", R"(
MASTER:12 OUT:1 pitch:h10 => l IP=2.33, 0:0
MASTER:12 OUT:1 pitch:h10 MASTER:24 OUT:0 pitch:h9 => l IP=2.33, k IP=1.67, 0:0
MASTER:12 OUT:1 pitch:h11 => l IP=2.33, 0:0
atbat:h MASTER:12 OUT:2 pitch:v10 => L IP=2.67, 0:0
MASTER:6 pitch:h10 MASTER:12 pitch:h11 MASTER:24 pitch:h9 => l IP=2.00, k IP=1.00, 0:0

Where nobody pitched before the present pitcher, a nameless row takes the innings.
MASTER:12 OUT:1 pitch:v10 =>  IP=2.33, 0:0
)");
  Game full;
  full.Play("pitch:h10 pitch:h11");
  EXPECT_EQ(full.Look("log"), "k_____[current pitcher];l_____[current pitcher];");
  EXPECT_EQ(full.sheet.grd_HomeStats.FindRow(11, ""), 3) << "who comes back has his row";
  for (int row = 3; row < kStatRows; ++row) full.sheet.grd_HomeStats.SetText(row, 11, "?");
  full.Play("pitch:h9 HR K BB RBI");
  EXPECT_EQ(full.Look("counters"), "A K=1, A BB=1, A HR=1, B RBI=1, l IP=0.00, k IP=0.00, 0:0");
  EXPECT_EQ(full.Look("told"), "Stat Recorded.") << "a pitcher without a row is charged nothing";
}

TEST(Sheet, CopiesTheLineScoreAndOpensExtraInnings) {
  Game table(false);
  const StatGrid& grid = table.sheet.grd_BoxScore;
  EXPECT_EQ(grid.ColumnAt(10).width, 0);
  for (const std::string seen : {"Team:Team/1500 :4/0 :/0 2:4/350 0:7/350 3:0/400 ",
                                 "Team:Team/1500 0:4/350 1:/350 3:4/350 0:7/350 3:0/400 "}) {
    table.Play("type:v0=2 type:h9=4 type:h21=7 type:v22=3 focus:v0");
    std::ostringstream text;
    for (const int column : {0, 10, 20, 21, 22, 23}) {
      text << grid.Text(1, column) << ":" << grid.Text(2, column) << "/"
           << grid.ColumnAt(column).width << " ";
    }
    EXPECT_EQ(text.str(), seen);
    table.Play("type:v9=0 type:v19=1");
  }
}

TEST(Sheet, CellsAreEditedAsTyped) {
  Game game;
  const auto edit = [&](int row, int column, const char* text) {
    BeginCellEdit(game.board, Side::Visitors, row, column);
    game.sheet.Text1.Set(text);
    return game.sheet.Text1_visible.value() ? CommitCellEdit(game.board) : -1;
  };
  EXPECT_EQ(edit(1, 0, "x") + edit(1, 18, "x") + edit(1, 19, "x") + edit(50, 5, "x"), -4);
  EXPECT_EQ(edit(1, 4, "2x") + edit(3, 17, "a long text"), 2 + 4);
  ClearCell(game.board, Side::Visitors, 3, 17);
  EXPECT_EQ(edit(48, 17, "the long text") + edit(49, 17, "a longer text"), 49 + 49);
  BeginCellEdit(game.board, Side::Home, 1, 5);
  game.sheet.Text1.Set("9");
  DropCellEdit(game.board);
  CommitCellEdit(game.board);
  ClearCell(game.board, Side::Visitors, 2, stat_column::kBatter);
  game.Play("1B 1B");
  EXPECT_EQ(game.Look("counters"),
            "A 1B=3, A AB=1, B 1B=1, B AB=1,  IP=the long text,  IP=a longer text, l H=2, 2:0")
      << "a batter whose name was taken off gets a row again";
}

}  // namespace dtb
