#include "browser/box_score.h"
#include "browser/queries.h"
#include "database/deletes.h"
#include "database_test.h"
#include "season/season_figures.h"

namespace dtb {
namespace {

class FaultsTest : public DatabaseTest {
 protected:
  // Everything in the folder: names and bytes.
  std::map<std::string, std::string> Contents() const {
    std::map<std::string, std::string> contents;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      contents[entry.path().filename().string()] =
          entry.is_directory() ? "" : ReadAll(entry.path());
    }
    return contents;
  }

  // A query, the opening, a purge and a save all tell the fault, once and with the path, leave the
  // folder as it is and the save's button in use.
  void ExpectTold(const std::string& fault, bool reads = false) {
    const auto before = Contents();
    desk.told.clear();
    {
      BrowserState state;
      Browser browser{state, ports};
      RunQuery(browser, Query::Command5);
      OpenBrowser(browser);
      EXPECT_EQ(state.MSHFlexGrid2.visible.value(), reads);
      if (!reads) ExpectBoxes({fault, fault});
      PurgeAll(browser.platform, kBrowserTitle);
      ExpectBoxes({"DELETE all statistics?", fault});
    }
    Table table(ports, "Ants", "Bees");
    SaveGame(table.board);
    ExpectBoxes({"Is your game over?", fault});
    EXPECT_TRUE(table.sheet.Command2_enabled.value());
    EXPECT_EQ(table.Cell(Side::Home, 1, stat_column::kPitcher), "");
    EXPECT_EQ(Contents(), before);
  }

  void ExpectBoxes(const Strings& parts) {
    ASSERT_EQ(desk.told.size(), parts.size()) << testing::PrintToString(desk.told);
    for (std::size_t i = 0; i < parts.size(); ++i) {
      EXPECT_NE(desk.told[i].find(parts[i]), std::string::npos) << desk.told[i];
    }
    desk.told.clear();
  }

  void Write(const std::string& bytes) { std::ofstream(file, std::ios::binary) << bytes; }
  [[nodiscard]] std::string Path(const std::string& complaint) const {
    return "\"" + file.string() + "\" " + complaint;
  }
};

TEST_F(FaultsTest, FilesThatAreNoDatabase) {
  std::filesystem::remove(file);
  ExpectTold(Path("is missing."));
  Write("");
  ExpectTold(Path("is empty"));
  for (const std::string& bytes :
       {std::string(5000, 'x'), std::string("short"), std::string("\0\1\0\0Some other format", 22),
        std::string(4096, '\0')}) {
    Write(bytes);
    ExpectTold(Path("is not a database that this program can read."));
  }
  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  ExpectTold(Path("cannot be opened: it is not a file."));
}

TEST_F(FaultsTest, DamagedFile) {
  std::string bytes = ReadAll(file);
  bytes.replace(100, 4000, std::string(4000, '\x55'));
  Write(bytes);
  ExpectTold(Path("is damaged."));
}

TEST_F(FaultsTest, LockedByAnotherProgram) {
  SQLite::Database other(file.string(), SQLite::OPEN_READWRITE);
  other.exec("BEGIN EXCLUSIVE");
  ExpectTold(Path("is in use by another program."));
  other.exec("ROLLBACK");
  Table table(ports, "Ants", "Bees");
  SaveGame(table.board);
  EXPECT_EQ(desk.told.back(), "Data successfully recorded");
}

#ifndef _WIN32  // there a folder has no such mode, and what runs under Wine may write as we may
TEST_F(FaultsTest, WriteProtected) {
  const auto expectProtected = [&](unsigned folderMode, unsigned fileMode, const char* fault) {
    std::filesystem::permissions(folder, std::filesystem::perms(folderMode));
    std::filesystem::permissions(file, std::filesystem::perms(fileMode));
    const AsNobody nobody;
    ExpectTold(fault, true);
  };
  expectProtected(0555, 0444, "can only be read");
  expectProtected(0777, 0444, "can only be read");
  // The file may be written, but not the folder where its journal would go.
  expectProtected(0555, 0666, "folder");
  std::filesystem::permissions(folder, std::filesystem::perms(0755));
}
#endif

// What is there is shown, can be exported and deleted; what is not is told once, and no save
// begins.
TEST_F(FaultsTest, MissingTablesAndColumns) {
  Execute(
      "DROP TABLE Matchups; ALTER TABLE WinLoss DROP COLUMN Win; DROP TABLE BoxScores;"
      "CREATE TABLE BoxScores (GameID INTEGER, Runs TEXT, Host, Team TEXT, Park TEXT, I1);"
      "INSERT INTO BoxScores VALUES (111826100113, '4', 'a_VIS', 'Ants', 'Home Park', 4),"
      " (111826100113, '2', 'b_HOME', 'Bees', 'Home Park', '2');"
      "INSERT INTO Batting (Batter) VALUES ('Joe')");
  BrowserState state;
  Browser browser{state, ports};
  OpenBrowser(browser);
  ASSERT_EQ(desk.told.size(), 1U);
  for (const char* sentence :
       {"There is no table \"Matchups\".", "The table \"WinLoss\" lacks the column \"Win\".",
        "The table \"BoxScores\" lacks the column \"I2\".",
        "The column \"Runs\" of the table \"BoxScores\" is made for texts, where numbers belong.",
        "The column \"GameID\" of the table \"BoxScores\" is made for numbers, where texts"}) {
    EXPECT_NE(desk.told[0].find(sentence), std::string::npos) << sentence << desk.told[0];
  }
  EXPECT_EQ(ColumnOf(state.MSHFlexGrid2.grid, 1), Strings{"Joe"});
  EXPECT_EQ(RowsOf(state.MSHFlexGrid1.grid).at(0),
            "Ants|4||||||||||||||||||||4|||a_VIS|111826100113|Home Park");
  EXPECT_EQ(state.season.value()->teams.at(1).wins, 1) << "behind the team without a name";
  SelectGameID(browser, 2, line_score_column::kGameID);
  EXPECT_EQ(ColumnOf(state.MSHFlexGrid12.grid, 1), (Strings{"Ants", "Bees"}));

  Table table(ports, "Ants", "Bees");
  SaveGame(table.board);
  EXPECT_NE(desk.told.back().find("There is no table \"Matchups\"."), std::string::npos)
      << desk.told.back();
  EXPECT_TRUE(table.sheet.Command2_enabled.value());

  PurgeAll(browser.platform, kBrowserTitle);
  EXPECT_TRUE(desk.told.back().starts_with("Delete of all")) << desk.told.back();
  EXPECT_EQ(Count("Batting"), "0");
}

// A failed query leaves what the grid shows.
TEST_F(FaultsTest, GridsOutliveFailures) {
  Execute("INSERT INTO Batting (Batter, k) VALUES ('Joe', 3)");
  BrowserState state;
  Browser browser{state, ports};
  RunQuery(browser, Query::Command5);
  std::filesystem::remove(file);
  RunQuery(browser, Query::Command5);
  EXPECT_EQ(RowsOf(state.MSHFlexGrid2.grid), Strings{"Joe|3||||||||||"});
}

}  // namespace
}  // namespace dtb
