#include "copies_test.h"

#include "browser/box_score.h"
#include "browser/chosen_game.h"
#include "database/backups.h"
#include "database/deletes.h"
#include "database/restore.h"

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
  PurgeAll(browser.platform, kBrowserTitle);
  PurgeAll(browser.platform, kBrowserTitle);
  EXPECT_EQ(desk.told.back(),
            "Delete of all statistics is complete.\n\n\"Restore a copy...\" on the tab "
            "\"Linescores\" brings it back from the copy of 2026-11-19 10:02:13 (2).");
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
    PurgeAll(browser.platform, kBrowserTitle);
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
  PurgeAll(browser.platform, kBrowserTitle);
  const std::string damaged(5000, 'x');
  std::ofstream(file, std::ios::binary) << damaged;
  std::ofstream(file.string() + "-journal") << "of the old file";
  desk.answer = "Restore";
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
  EXPECT_FALSE(std::filesystem::exists(file)) << "where copies stand no empty one is made";
  std::filesystem::remove_all(folder / kCopiesFolder);
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
      {"DELETE FROM WinLoss WHERE rowid = 1", "Delete", "4 4 4 3 2 ", 3},
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
    TakeOutChosen(browser, ChosenGame(state, 3));  // the second game, behind the newest
    EXPECT_EQ(Counts(), one.left) << one.before << one.answer;
    EXPECT_EQ(desk.told.size(), one.boxes) << testing::PrintToString(desk.told);
    EXPECT_NE(desk.told[0].find("Ants 5, Bees 3\nGameID 111826100213"), std::string::npos);
  }
  // The standings are those of the games that are left.
  copies.BringBack("start.mdb");
  OpenBrowser(browser);
  state.Text9.Set("100113");
  TakeOutChosen(browser, ChosenGame(state, 0));
  EXPECT_EQ(RowsOf(state.MSHFlexGrid9.grid), (Strings{"Ants|1|", "Bees||1"}));
  EXPECT_EQ(RowsOf(state.MSHFlexGrid10.grid), (Strings{"Ants  vs  Bees|1", "Bees  vs  Ants|1"}));
  state.Text9.Set("1118");  // of both that are left
  TakeOutChosen(browser, ChosenGame(state, 0));
  EXPECT_TRUE(desk.told.back().starts_with("No game is chosen."));
}

// Files of the years before may have several games under one GameID. Those without a common team
// are told apart, the others are told of.
TEST_F(CopiesTest, GamesOfOneGameID) {
  Save(1, "Ants", 4, "Bees", 2);
  Save(2, "Cats", 5, "Dogs", 3);
  Save(3, "Bees", 1, "Emus", 0);
  for (const char* table : {"Batting", "Pitching", "BoxScores"}) {
    Execute(std::string("UPDATE ") + table + " SET GameID = '111826100113'");
  }
  OpenBrowser(browser);
  EXPECT_EQ(ColumnOf(state.MSHFlexGrid1.grid, 1),
            (Strings{"Ants", "Bees", "Cats", "Dogs", "Bees", "Emus"}));
  SelectGameID(browser, 4, line_score_column::kGameID);
  EXPECT_EQ(ColumnOf(state.MSHFlexGrid12.grid, 1), (Strings{"Cats", "Dogs"}));
  EXPECT_EQ(RowsOf(state.MSHFlexGrid8.grid), Strings{"Joe||||||||||Dogs|111826100113"});
  const std::size_t boxes = desk.told.size();
  SelectGameID(browser, 5, line_score_column::kGameID);
  ASSERT_EQ(desk.told.size(), boxes + 1);
  EXPECT_NE(desk.told.back().find("Ants 4, Bees 2\nBees 1, Emus 0"), std::string::npos);

  TakeOutChosen(browser, ChosenGame(state, 3));
  EXPECT_EQ(Counts(), "4 4 4 4 2 ");
  EXPECT_EQ(Stored("SELECT DISTINCT Team FROM Batting"), (Strings{"Bees", "Ants", "Emus"}));
  desk.yes = false;
  TakeOutChosen(browser, ChosenGame(state, 1));
  EXPECT_NE(desk.told.back().find("have the same GameID and a team in common"), std::string::npos);
  EXPECT_NE(desk.told.back().find("With it go: 4 lines, 4 batters, 4 pitchers"), std::string::npos);
}

// Another board takes out the same game, or saves one, while this one asks.
TEST_F(CopiesTest, TwoBoardsTakeOutOneGame) {
  Save(1, "Ants", 4, "Bees", 2);
  Save(2, "Ants", 4, "Bees", 2);
  OpenBrowser(browser);
  TestDesk other;
  Platform otherPorts = PlatformOf(other, database, workbooks, folder, &copies);
  BrowserState otherState;
  Browser otherBrowser{otherState, otherPorts};
  OpenBrowser(otherBrowser);
  desk.whileAsked = [&] { TakeOutChosen(otherBrowser, ChosenGame(otherState, 1)); };
  TakeOutChosen(browser, ChosenGame(state, 1));
  EXPECT_EQ(Counts(), "2 2 2 2 1 ") << "one game went, with one win and one loss";
  EXPECT_NE(desk.told.back().find("another program has changed the database"), std::string::npos)
      << desk.told.back();
  EXPECT_EQ(state.MSHFlexGrid1.grid.rows(), 3) << "the list is as it is now";
  TakeOutChosen(otherBrowser, GameChoice{"111826100213"});
  EXPECT_NE(other.told.back().find("is no longer in the database"), std::string::npos);
}

// What a copy would change is counted in all tables, and a copy that is not whole is never offered.
TEST_F(CopiesTest, CopiesAreLookedThrough) {
  Save(1, "Ants", 4, "Bees", 2);
  copies.MakeCopy(CopyName({2026, 11, 20}));
  CopiesState shown;
  CopiesDesk copiesDesk{shown, ports};
  ListCopies(copiesDesk);
  EXPECT_EQ(shown.lbl_Changes.value(), "Identical to the database.");
  Execute("DELETE FROM Batting; UPDATE Pitching SET IP = 7");
  SelectCopy(copiesDesk, 1);
  EXPECT_EQ(shown.lbl_Changes.value(),
            "The same games as in the database. In the tables batting: 2 "
            "rows instead of 0; pitching: other figures.");

  // Two newer ones: one lacks a table, of the other a page is torn.
  copies.MakeCopy(CopyName({2026, 11, 21}));
  copies.MakeCopy(CopyName({2026, 11, 22}));
  const auto path = [this](int day) { return folder / kCopiesFolder / CopyName({2026, 11, day}); };
  SQLite::Database(path(21).string(), SQLite::OPEN_READWRITE).exec("DROP TABLE Matchups");
  std::string bytes = ReadAll(path(22));
  bytes.replace(4096, 4096, 4096, '\x55');
  std::ofstream(path(22), std::ios::binary) << bytes;
  ListCopies(copiesDesk);
  EXPECT_FALSE(shown.canBringBack.value());
  std::filesystem::remove(file);
  desk.answer = "Restore";
  OpenBrowser(browser);
  const std::string offer = desk.told.at(desk.told.size() - 2);
  EXPECT_NE(
      offer.find("The newest undamaged copy is the copy of 2026-11-20 00:00:00, with 1 game.\n\n"
                 "Skipped: the copy of 2026-11-22 00:00:00. "),
      std::string::npos)
      << offer;
  EXPECT_NE(offer.find("has no table \"Matchups\"."), std::string::npos) << offer;
  EXPECT_EQ(Counts(), "2 2 2 2 1 ");
}

// A database whose changes stand in a log beside it is compared and copied with them.
TEST_F(CopiesTest, WriteAheadLog) {
  Save(1, "Ants", 4, "Bees", 2);
  SQLite::Database other(file.string(), SQLite::OPEN_READWRITE);
  other.exec("PRAGMA journal_mode = WAL");
  const std::string first = CopyAside(ports);
  EXPECT_EQ(CopyAside(ports), first) << "nothing has changed";
  other.exec("UPDATE Batting SET Batter = 'Al'");
  EXPECT_FALSE(copies.EqualsCopy(first));
  desk.time.day += 1;
  const std::string second = CopyAside(ports);
  EXPECT_TRUE(copies.EqualsCopy(second));
  EXPECT_EQ(copies.CopyNames().size(), 3U) << "the copies need no log of their own";
  other.exec("DELETE FROM Batting");
  copies.BringBack(second);
  EXPECT_EQ(Stored("SELECT DISTINCT Batter FROM Batting"), Strings{"Al"});
}

// The clock was set back: the newest copy has not the latest date, and stays all the same.
TEST_F(CopiesTest, TheCopyJustMadeStays) {
  Save(1, "Ants", 4, "Bees", 2);
  for (int day = 1; day <= 20; ++day) copies.MakeCopy(CopyName({2027, 1, day}));
  copies.MakeCopy(CopyName({2026, 11, 1}));
  Execute("DELETE FROM Batting");
  desk.time = {2026, 11, 17};
  const std::string made = CopyAside(ports);
  EXPECT_EQ(made, CopyName({2026, 11, 17}));
  EXPECT_TRUE(copies.EqualsCopy(made));
}

#ifndef _WIN32  // which makes no links for everybody
// What stands in place of a damaged file takes no link away and no file that came back.
TEST_F(CopiesTest, LinksAndFilesThatComeBack) {
  Save(1, "Ants", 4, "Bees", 2);
  PurgeAll(browser.platform, kBrowserTitle);
  const auto elsewhere = folder / "elsewhere";
  std::filesystem::create_directory(elsewhere);
  std::filesystem::rename(file, elsewhere / "real.mdb");
  std::filesystem::create_symlink("elsewhere/real.mdb", file);
  const std::string sound = ReadAll(file);
  std::ofstream(file, std::ios::binary) << std::string(5000, 'x');
  desk.answer = "Restore";
  desk.whileAsked = [&] { std::ofstream(file, std::ios::binary) << sound; };
  OpenBrowser(browser);
  EXPECT_NE(desk.told.back().find("is back and undamaged"), std::string::npos) << desk.told.back();
  EXPECT_EQ(ReadAll(file), sound);

  std::ofstream(file, std::ios::binary) << std::string(5000, 'x');
  OpenBrowser(browser);
  EXPECT_EQ(Counts(), "2 2 2 2 1 ");
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_TRUE(std::filesystem::exists(elsewhere / DamagedName(desk.time)));
}
#endif

TEST_F(CopiesTest, AGameSavedTwiceIsPointedOut) {
  Save(1, "Ants", 4, "Bees", 2);
  Save(2, "Ants", 4, "Bees", 2);
  Execute("UPDATE Batting SET Batter = 'Al' WHERE rowid = 1");
  OpenBrowser(browser);
  FindGameSavedTwice(browser);
  EXPECT_EQ(state.lbl_Twice.value(), "") << "another player batted";
  Execute("UPDATE Batting SET Batter = 'Joe'");
  FindGameSavedTwice(browser);
  EXPECT_EQ(state.lbl_Twice.value(),
            "Saved twice: Ants 4, Bees 2, as 111826100113 and again as 111826100213.");
  TakeOutChosen(browser, GameChoice{state.savedAgain});
  EXPECT_EQ(state.lbl_Twice.value(), "");
  // Of three with the same lines the first is another game.
  Save(3, "Ants", 4, "Bees", 2);
  Save(4, "Ants", 4, "Bees", 2);
  Execute("UPDATE Batting SET Batter = 'Al' WHERE GameID = '111826100113'");
  ReadAgain(browser);
  FindGameSavedTwice(browser);
  EXPECT_EQ(state.lbl_Twice.value(),
            "Saved twice: Ants 4, Bees 2, as 111826100313 and again as 111826100413.");
  Execute("DELETE FROM Batting WHERE GameID > '111826100113'");
  EXPECT_EQ(Stored("SELECT DISTINCT GameID FROM Batting"), Strings{"111826100113"});
}

}  // namespace
}  // namespace dtb
