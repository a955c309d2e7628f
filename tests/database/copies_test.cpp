#include "copies_test.h"

#include "browser/bring_back.h"
#include "browser/copies.h"
#include "browser/deletes.h"
#include "browser/game_out.h"

namespace dtb {
namespace {

TEST(CopiesKept, TheNewestTwentyAndTheFullestOfEachMonth) {
  // Copies older than twenty of December: day and month, and games; then the days that go.
  struct Case {
    std::vector<std::pair<LocalTime, int>> old;
    std::vector<std::size_t> gone;
  };
  const Case cases[] = {
      {{}, {}},
      {{{{2026, 11, 9}, 3}}, {}},
      {{{{2026, 11, 9}, 3}, {{2026, 11, 8}, 7}, {{2026, 11, 7}, 7}}, {0, 2}},
      {{{{2026, 11, 9}, -1}, {{2026, 10, 8}, 0}, {{2025, 11, 7}, 7}}, {}},
      {{{{2026, 12, 1}, 5}, {{2026, 11, 8}, 0}, {{2026, 11, 7}, -1}}, {2}},
  };
  for (const Case& one : cases) {
    Strings names, gone;
    std::map<std::string, int> games;
    for (int hour = 20; hour > 0; --hour) names.push_back(CopyName({2026, 12, 2, hour}));
    for (const auto& [time, count] : one.old) games[names.emplace_back(CopyName(time))] = count;
    for (const std::size_t place : one.gone) gone.push_back(names.at(20 + place));
    EXPECT_EQ(CopiesToRemove(names, [&](const std::string& name) { return games.at(name); }), gone);
  }
  EXPECT_EQ(TimeOfCopy(CopyName({2026, 1, 2, 3, 4, 5}, 2)), "2026-01-02 03:04:05 (2)");
  for (const char* foreign :
       {"DTB.mdb", "DTB 2026-01-02 03-04-05.mdb.new", "notes.txt",
        "DTB damaged 2026-01-02 03-04-05.mdb", "DTB 2026-01-02 03-04-0x.mdb"}) {
    EXPECT_EQ(TimeOfCopy(foreign), std::nullopt) << foreign;
  }
}

// A purge and the way back, which itself can be taken back.
TEST_F(CopiesTest, ComesBackAfterAPurge) {
  Save(1, "Ants", 4, "Bees", 2);
  Save(2, "Ants", 1, "Bees", 1);
  EXPECT_EQ(copies.CopyNames().size(), 1U) << "one a day before a save";
  desk.time.day += 1;
  PurgeAll(browser);
  PurgeAll(browser);
  EXPECT_EQ(desk.told.back(),
            "Delete of all statistics is complete.\n\n\"Bring back a copy...\" on the tab "
            "\"Linescores\" gets it back, from the copy of 2026-11-19 10:02:13 (2).");
  EXPECT_EQ(Counts(), "0 0 0 0 0 ");

  CopiesState shown;
  CopiesDesk copiesDesk{shown, ports};
  ListCopies(copiesDesk);
  EXPECT_EQ(RowsOf(shown.grd_Copies).size(), 3U);
  SelectCopy(copiesDesk, 2);
  EXPECT_EQ(shown.lbl_Changes.value().substr(0, 18), "2 games come back.");
  EXPECT_EQ(RowsOf(shown.grd_Changes), (Strings{"comes back|Ants 4, Bees 2|111826100113",
                                                "comes back|Ants 1, Bees 1|111826100213"}));
  BringBackSelected(copiesDesk);
  EXPECT_EQ(Counts(), "4 4 4 4 2 ");
  EXPECT_EQ(ColumnOf(shown.grd_Copies, 2), (Strings{"0", "2", "0"})) << "the emptied one is kept";
  SelectCopy(copiesDesk, 1);
  EXPECT_EQ(shown.lbl_Changes.value().substr(0, 11), "2 games go.");
}

// Without a copy nothing is deleted that the person would rather keep.
TEST_F(CopiesTest, AskWhereNoCopyCanBeMade) {
  Save(1, "Ants", 4, "Bees", 2);
  std::filesystem::remove_all(folder / kCopiesFolder);
  std::ofstream(folder / kCopiesFolder) << "no folder";
  for (const bool goOn : {false, true}) {
    desk.told.clear();
    desk.refused = goOn ? "" : "without a copy?";
    PurgeAll(browser);
    ASSERT_EQ(desk.told.size(), goOn ? 3U : 2U);
    EXPECT_NE(desk.told[1].find("for the copies cannot be made"), std::string::npos);
    EXPECT_EQ(Count("Batting"), goOn ? "0" : "2");
  }
  EXPECT_EQ(desk.told.back(), "Delete of all statistics is complete.");
  Save(2, "Ants", 4, "Bees", 2);
  EXPECT_NE(desk.told.back().find("no copy of the database could be made"), std::string::npos);
}

// A copy that cannot be made whole leaves nothing, and a damaged one is never brought back.
TEST_F(CopiesTest, HalfAndDamagedCopies) {
  Save(1, "Ants", 4, "Bees", 2);
  const std::string name = copies.CopyNames().at(0);
  const auto path = folder / kCopiesFolder / name;
  std::ofstream(folder / kCopiesFolder / "DTB 2020-01-01 00-00-00.mdb.new") << "half";
  copies.MakeCopy("whole.mdb");
  EXPECT_EQ(copies.CopyNames().size(), 2U);
  EXPECT_THROW(copies.MakeCopy("whole.mdb"), ProgramError);
  std::string bytes = ReadAll(path);
  bytes.replace(4096, 3000, 3000, '\x55');
  std::ofstream(path, std::ios::binary) << bytes;
  const std::string before = Counts();
  EXPECT_THROW(copies.BringBack(name), DatabaseOutOfReach);
  EXPECT_THROW(copies.Renew(name, "aside.mdb"), DatabaseOutOfReach);
  EXPECT_EQ(Counts(), before);
  EXPECT_FALSE(std::filesystem::exists(folder / "aside.mdb"));
  EXPECT_FALSE(std::filesystem::exists(file.string() + ".new"));
}

// Another database is offered where one is missing or damaged, at the opening and at a save.
TEST_F(CopiesTest, InThePlaceOfALostDatabase) {
  Save(1, "Ants", 4, "Bees", 2);
  PurgeAll(browser);
  const std::string damaged(5000, 'x');
  std::ofstream(file, std::ios::binary) << damaged;
  std::ofstream(file.string() + "-journal") << "of the old file";
  desk.answer = "Bring back";
  OpenBrowser(browser);
  EXPECT_EQ(Counts(), "2 2 2 2 1 ");
  EXPECT_EQ(state.MSHFlexGrid1.grid.rows(), 3);
  EXPECT_EQ(ReadAll(folder / "DTB damaged 2026-11-18 10-01-13.mdb"), damaged);

  std::filesystem::remove(file);
  desk.answer = "Leave";
  Table table(ports, "Ants", "Bees");
  SaveGame(table.board);
  EXPECT_TRUE(table.sheet.Command2_enabled.value());
  EXPECT_FALSE(std::filesystem::exists(file));
  desk.answer = "Make an empty";
  SaveGame(table.board);
  EXPECT_EQ(desk.told.back(), "Data successfully recorded");
  EXPECT_EQ(Count("Matchups"), "1");
}

// Each case: what was done before, the answer about rows whose game cannot be told, rows left.
TEST_F(CopiesTest, OneGameOut) {
  struct Case {
    const char* before;
    const char* answer;
    const char* left;
    std::size_t boxes;
  };
  const Case cases[] = {
      {"", "", "4 4 4 4 2 ", 2},
      {"DELETE FROM WinLoss WHERE rowid = 1", "Leave", "4 4 4 4 2 ", 3},
      {"DELETE FROM WinLoss WHERE rowid = 1", "Take", "4 4 4 3 2 ", 3},
      {"DELETE FROM WinLoss WHERE rowid = 1", "Keep", "6 6 6 5 3 ", 2},
      {"DELETE FROM WinLoss; DELETE FROM Matchups", "", "4 4 4 0 0 ", 2},
  };
  Save(1, "Ants", 4, "Bees", 2);
  Save(2, "Ants", 5, "Bees", 3);
  Save(3, "Bees", 1, "Ants", 1);
  copies.MakeCopy("start.mdb");
  for (const Case& one : cases) {
    copies.BringBack("start.mdb");
    Execute(one.before);
    OpenBrowser(browser);
    desk.told.clear();
    desk.answer = one.answer;
    TakeOutGame(browser, ChosenGameID(state, 3));  // the second game, behind the newest
    EXPECT_EQ(Counts(), one.left) << one.before << one.answer;
    EXPECT_EQ(desk.told.size(), one.boxes) << testing::PrintToString(desk.told);
    EXPECT_NE(desk.told[0].find("Ants 5, Bees 3\nGameID 111826100213"), std::string::npos);
  }
  // The standings are those of the games that are left.
  copies.BringBack("start.mdb");
  OpenBrowser(browser);
  state.Text9.Set("100113");
  TakeOutGame(browser, ChosenGameID(state, 0));
  EXPECT_EQ(RowsOf(state.MSHFlexGrid9.grid), (Strings{"Ants|1|", "Bees||1"}));
  EXPECT_EQ(RowsOf(state.MSHFlexGrid10.grid), (Strings{"Ants  vs  Bees|1", "Bees  vs  Ants|1"}));
  state.Text9.Set("1118");  // of both that are left
  TakeOutGame(browser, ChosenGameID(state, 0));
  EXPECT_TRUE(desk.told.back().starts_with("No game is chosen."));
}

TEST_F(CopiesTest, AGameSavedTwiceIsPointedOut) {
  Save(1, "Ants", 4, "Bees", 2);
  Save(2, "Ants", 4, "Bees", 2);
  Execute("UPDATE Batting SET Batter = 'Al' WHERE rowid = 1");
  OpenBrowser(browser);
  FindGameSavedTwice(browser);
  EXPECT_EQ(state.lbl_Twice.value(), "") << "another man batted";
  Execute("UPDATE Batting SET Batter = 'Joe'");
  FindGameSavedTwice(browser);
  EXPECT_EQ(state.lbl_Twice.value(),
            "Saved twice: Ants 4, Bees 2, as 111826100113 and again as 111826100213.");
  TakeOutGame(browser, state.savedAgain);
  EXPECT_EQ(state.lbl_Twice.value(), "");
  EXPECT_EQ(Stored("SELECT DISTINCT GameID FROM Batting"), Strings{"111826100113"});
}

}  // namespace
}  // namespace dtb
