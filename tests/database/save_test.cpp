#include "database_test.h"
#include "game/history.h"

namespace dtb {
namespace {

using namespace stat_column;

constexpr const char* kQuestion =
    "WARNING: Record data only when a game is over. Is your game over?";
constexpr const char* kSaved = "Data successfully recorded";

class SaveTest : public DatabaseTest {
 protected:
  // Five and a third innings of the visitors' bats, five of the home team's, 4 to 2.
  SaveTest() {
    for (int inning = 0; inning < 5; ++inning) {
      table.state.tb_BoxScore.at(inning).colour.Set(kFinishedYellow);
      table.state.tb_BoxScoreBottom.at(inning).colour.Set(kFinishedYellow);
    }
    table.state.tb_OUT.Set("1");
    table.state.tb_BoxScore.at(0).text.Set("4");
    table.state.tb_BoxScoreBottom.at(1).text.Set("2");
    table.state.tb_BoxScore.at(kTotalHits).text.Set("7");
    ConstantUpdate(table.board);
    table.Put(Side::Visitors, 1, {{kBatter, "Al"}, {kPlayed, "1"}, {kAtBats, "3"}, {kWalks, "0"}});
    table.Put(Side::Visitors, 2, {{kBatter, "Bo"}, {kPlayed, "1"}, {kAtBats, "4"}});
    table.Put(Side::Visitors, 10, {{kBatter, "Reserve"}, {kAtBats, "1"}});
    table.Put(Side::Home, 1, {{kBatter, "O'Neill"}, {kPlayed, "1"}, {kHomeRuns, " 2 "}});
  }

  Table table{ports, "Ants", "Bees"};
};

TEST_F(SaveTest, StoresTheGameInFiveTables) {
  table.Put(Side::Home, 1, {{kPitcher, "Starter"}, {kPitcherHits, "5"}, {kInningsPitched, "2.33"}});
  table.Put(Side::Home, 2, {{kPitcher, "Typed by hand"}});
  table.Put(Side::Visitors, 1, {{kPitcher, "Nought"}, {kInningsPitched, "0"}});
  table.Put(Side::Visitors, 2, {{kPitcher, "No out"}, {kInningsPitched, "0.00"}});
  SaveGame(table.board);

  EXPECT_EQ(desk.told, (Strings{kQuestion, kSaved}));
  EXPECT_FALSE(table.sheet.Command2_enabled.value());
  EXPECT_EQ(table.sheet.tb_TimeStamp2.value(), "111826104413");
  EXPECT_EQ(Stored("SELECT * FROM Batting"), (Strings{"O'Neill|-|-|-|-|-|2|-|-|-|Bees|111826104413",
                                                      "Al|-|0|-|-|-|-|-|-|3|Ants|111826104413",
                                                      "Bo|-|-|-|-|-|-|-|-|4|Ants|111826104413"}));
  EXPECT_EQ(
      Stored("SELECT * FROM Pitching"),
      (Strings{"Starter|-|-|5|-|-|2.33|Bees|111826104413",
               "Typed by hand|-|-|-|-|-|0.0001|Bees|111826104413",
               "Last of Bees|-|-|-|-|-|3|Bees|111826104413",  // 16 outs are 5.33
               "Nought|-|-|-|-|-|0.0001|Ants|111826104413", "No out|-|-|-|-|-|0|Ants|111826104413",
               "Last of Ants|-|-|-|-|-|5.33|Ants|111826104413"}));
  EXPECT_EQ(Stored("SELECT * FROM BoxScores"),
            (Strings{"Ants|4|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|4|7|0|a_VIS|111826104413",
                     "Bees|-|2|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|2|0|0|b_HOME|111826104413"}));
  EXPECT_EQ(Stored("SELECT * FROM WinLoss"), (Strings{"Ants|1|-", "Bees|-|1"}));
  EXPECT_EQ(Stored("SELECT * FROM Matchups"), (Strings{"Ants  vs  Bees|1"}));
  EXPECT_EQ(table.Cell(Side::Home, 3, kInningsPitched), "3.00");

  SaveGame(table.board);
  EXPECT_EQ(desk.told.size(), 2U) << "a game is saved once";
}

TEST_F(SaveTest, SavesNothingWithoutAGame) {
  desk.yes = false;
  SaveGame(table.board);
  EXPECT_EQ(desk.told, Strings{kQuestion});
  desk.yes = true;
  table.state.List2.Clear();
  SaveGame(table.board);
  EXPECT_NE(desk.told.back().find("In the home team's list no player is highlighted"),
            std::string::npos);

  Table empty(ports, "Team", "Team");
  SaveGame(empty.board);
  EXPECT_EQ(desk.told.back(), "Missing required game data. Unable to save.");
  empty.Put(Side::Visitors, 1, {{kBatter, "Al"}});
  SaveGame(empty.board);
  EXPECT_EQ(desk.told.back(), kSaved) << "one batter is enough";
  EXPECT_TRUE(table.sheet.Command2_enabled.value());
  EXPECT_EQ(Stored("SELECT Matchup FROM Matchups"), Strings{"Team  vs  Team"});
}

TEST_F(SaveTest, DecidesWhoWon) {
  struct Row {
    const char* visitors;
    const char* home;
    Strings stored;
  };
  for (const Row& row : std::vector<Row>{{"3", "10", {"Ants|-|1", "Bees|1|-"}},
                                         {"10", "9", {"Ants|1|-", "Bees|-|1"}},
                                         {"5", "5", {"Ants|-|-", "Bees|-|-"}}}) {
    Table game(ports, "Ants", "Bees");
    game.state.tb_BoxScore.at(kTotalRuns).text.Set(row.visitors);
    game.state.tb_BoxScoreBottom.at(kTotalRuns).text.Set(row.home);
    SaveGame(game.board);
    EXPECT_EQ(Stored("SELECT * FROM WinLoss"), row.stored) << row.visitors << ":" << row.home;
    EXPECT_EQ(game.sheet.tb_VisWin.value() + game.sheet.tb_HomeWin.value(), "");
    Execute("DELETE FROM WinLoss");
  }
}

TEST_F(SaveTest, TextWhereNumbersBelongIsNamedAndNothingIsStored) {
  struct Row {
    Side side;
    int row, column;
    const char* text;
    const char* place;  // "": the save does not look there
  };
  for (const Row& row : std::vector<Row>{
           {Side::Visitors, 1, kAtBats, "x", "Team, row 1 (Al), column AB: \"x\""},
           {Side::Home, 1, kPitcherHits, "1 2", "Team, row 1 (Starter), column H: \"1 2\""},
           {Side::Home, 2, kEarnedRuns, "?", "Team, row 2 (Last of Bees), column ER: \"?\""},
           {Side::Visitors, 10, kAtBats, "x", ""},
           {Side::Home, 40, kPitcherHits, "x", ""}}) {
    table.Put(Side::Home, 1, {{kPitcher, "Starter"}, {kInningsPitched, "2.33"}});
    table.Put(Side::Home, 2, {{kPitcher, row.row == 2 ? "Last of Bees" : ""}});
    table.Put(row.side, row.row, {{row.column, row.text}});
    const std::string before = GameText(table.board);
    desk.told.clear();
    SaveGame(table.board);
    EXPECT_EQ(desk.told.back() == kSaved, *row.place == '\0');
    EXPECT_NE(desk.told.back().find(row.place), std::string::npos) << desk.told.back();
    if (*row.place != '\0') {
      EXPECT_EQ(GameText(table.board), before);
      EXPECT_EQ(Count("Batting"), "0");
    }
    table.Put(row.side, row.row, {{row.column, ""}});
    Execute("DELETE FROM Batting");
    table.sheet.Command2_enabled.Set(true);
  }
}

// Runs out of memory at the given row.
struct ShortOfMemory : QuietDesktop {
  struct Save : DatabaseSave {
    explicit Save(int& rowsLeft) : left(rowsLeft) {}
    void Run(const Statement& /*query*/, RowSink& /*rows*/) override {}
    void Append(const std::string& /*table*/, const std::vector<ColumnText>& /*row*/) override {
      if (left-- == 0) throw std::bad_alloc();
    }
    std::string AppendPlays(const std::vector<TableRow>& /*rows*/) override {
      if (left-- == 0) throw std::bad_alloc();
      return {};
    }
    void Commit() override {
      if (left-- == 0) throw std::bad_alloc();
    }
    int& left;
  };
  std::unique_ptr<DatabaseSave> BeginSave(const std::vector<TableColumns>& /*tables*/) override {
    return std::make_unique<Save>(left);
  }
  int left = 0;
};

TEST_F(SaveTest, CanBeTriedAgainWhenMemoryRunsOut) {
  const std::string before = GameText(table.board);
  ShortOfMemory shortOfMemory;
  Platform starved = PlatformOf(desk, shortOfMemory, workbooks, folder);
  Board board{table.state, table.sheet, table.log, starved};
  int failures = 0;
  do {
    shortOfMemory.left = failures++;
    SaveGame(board);
    EXPECT_EQ(table.sheet.Command2_enabled.value(), desk.told.back() != kSaved);
    if (desk.told.back() != kSaved) {
      EXPECT_EQ(GameText(table.board), before);
    }
  } while (desk.told.back() != kSaved && failures < 100);
  EXPECT_EQ(failures, 13) << "eleven rows, the plays and the commit, and then it works";
}

TEST_F(SaveTest, NumericColumnsTakeNumbersAlone) {
  const std::vector<std::pair<const char*, const char*>> texts{
      {"1", "1"},   {" 7", "7"},  {"6.33", "6.33"}, {".0001", "0.0001"},
      {"-2", "-2"}, {"3.0", "3"}, {"1e2", "100"},   {"abc", ""},
      {"1x", ""},   {"1 2", ""},  {"x", ""},        {" ", ""},
      {"0x10", ""}, {"inf", ""},  {"1e400", ""},    {"1,5", ""}};
  for (const auto& [text, stored] : texts) {
    const auto save = database.BeginSave(SavedTables());
    if (*stored == '\0') {
      EXPECT_THROW(save->Append("Pitching", {{"IP", text}}), RowRefused) << text;
      continue;
    }
    save->Append("Pitching", {{"IP", text}});
    save->Commit();
    EXPECT_EQ(Stored("SELECT IP FROM Pitching"), Strings{stored}) << text;
    Execute("DELETE FROM Pitching");
  }
  EXPECT_EQ(Count("Pitching"), "0") << "what was not committed is not there";
}

// Boards may save in one second, and clocks are set back: the next free second is taken, also over
// the ends of day, month and year.
TEST_F(SaveTest, NoTwoGamesShareAGameID) {
  struct Row {
    LocalTime time;
    const char* second;
  };
  for (const Row& row : std::vector<Row>{{{2026, 11, 18, 10, 44, 13}, "111826104414"},
                                         {{2026, 11, 18, 10, 59, 59}, "111826110000"},
                                         {{2026, 11, 30, 23, 59, 59}, "120126000000"},
                                         {{2026, 2, 28, 23, 59, 59}, "030126000000"},
                                         {{2028, 2, 28, 23, 59, 59}, "022928000000"},
                                         {{2026, 12, 31, 23, 59, 59}, "010127000000"}}) {
    desk.time = row.time;
    Table first(ports, "Ants", "Bees");
    Table second(ports, "Ants", "Bees");
    SaveGame(first.board);
    SaveGame(second.board);
    EXPECT_EQ(second.sheet.tb_TimeStamp2.value(), row.second);
  }
  Execute("INSERT INTO Batting (GameID) VALUES ('111826104415')");
  desk.time = {2026, 11, 18, 10, 44, 13};
  SaveGame(table.board);
  EXPECT_EQ(table.sheet.tb_TimeStamp2.value(), "111826104416") << "13 and 14 are games, 15 a rest";
}

// A line score may hold what people write there.
TEST_F(SaveTest, LineScoresTakeAnyText) {
  table.state.tb_BoxScoreBottom.at(8).text.Set("x");
  table.state.tb_BoxScoreBottom.at(kTotalErrors).text.Set("");
  ConstantUpdate(table.board);
  SaveGame(table.board);
  EXPECT_EQ(desk.told.back(), kSaved);
  EXPECT_EQ(Stored("SELECT I9, Errors FROM BoxScores"), (Strings{"-|0", "x|"}));
}

}  // namespace
}  // namespace dtb
