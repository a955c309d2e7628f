#include <signal.h>
#include <sys/resource.h>

#include <functional>

#include "export_test.h"

namespace dtb {
namespace {

class ExportFaultsTest : public ExportTest {
 protected:
  // Both exports of the browser tell this once and leave everything as it was.
  void ExpectRefused(const std::string& complaint) {
    const Strings before = Reports();
    for (const bool grids : {true, false}) {
      desk.told.clear();
      if (grids) {
        EXPECT_FALSE(ExportGrids(browser));
      } else {
        ExportTables(browser);
      }
      ASSERT_EQ(desk.told.size(), 1U) << complaint;
      EXPECT_NE(desk.told[0].find(complaint), std::string::npos) << desk.told[0];
      EXPECT_EQ(Reports(), before);
      EXPECT_EQ(desk.clipboard, "");
    }
  }

  static auto OpenFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
  }
};

TEST_F(ExportFaultsTest, Refusals) {
  OpenBrowser(browser);
  std::ofstream(folder / "Game Rpts") << "no folder";
  for (const bool grids : {true, false}) {
    desk.told.clear();
    grids ? static_cast<void>(ExportGrids(browser)) : ExportTables(browser);
    ASSERT_EQ(desk.told.size(), 1U);
    EXPECT_NE(desk.told[0].find("cannot be made"), std::string::npos) << desk.told[0];
  }
  std::filesystem::remove(folder / "Game Rpts");
  std::filesystem::create_directory(folder / "Game Rpts");
  std::ofstream(Report("older.xlsx")) << "kept";
  // The database wants a folder in which its journal may stand.
  std::filesystem::permissions(folder, std::filesystem::perms(0777));
  std::filesystem::permissions(file, std::filesystem::perms(0666));
  std::filesystem::permissions(folder / "Game Rpts", std::filesystem::perms(0555));
  {
    const AsNobody nobody;
    ExpectRefused("you may not write to its folder");
  }
  std::filesystem::permissions(folder / "Game Rpts", std::filesystem::perms(0755));
  std::filesystem::remove(file);
  ExportTables(browser);
  EXPECT_NE(desk.told.back().find("is missing"), std::string::npos);
  EXPECT_EQ(Reports(), Strings{"older.xlsx"});
}

TEST_F(ExportFaultsTest, CancellingAtAnyMomentLeavesNothing) {
  Execute(
      "INSERT INTO Batting (Batter, k) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
      "FROM n WHERE i < 3000) SELECT 'Man ' || i, i FROM n");
  OpenBrowser(browser);
  const auto files = OpenFiles();
  bool cancelled = true;
  double last = 0;
  for (int call = 1; cancelled; ++call) {
    int heard = 0;
    last = 0;
    cancelled = false;
    ExportTables(browser, [&](double share) {
      EXPECT_GE(share, last) << "a bar that goes back";
      EXPECT_LE(share, 1);
      last = share;
      cancelled = cancelled || ++heard == call;
      return !cancelled;
    });
    if (!cancelled) break;
    EXPECT_EQ(Reports(), Strings{}) << call;
    EXPECT_EQ(desk.told, Strings{}) << call;
  }
  EXPECT_GE(last, 0.5);
  EXPECT_EQ(Reports().size(), 1U);
  std::filesystem::remove_all(folder / "Game Rpts");
  for (const double share : {0.0, 0.3, 0.505}) {  // the last while the file is packed
    EXPECT_FALSE(ExportGrids(browser, [share](double done) { return done < share; }));
    EXPECT_EQ(Reports(), Strings{}) << share;
  }
  EXPECT_EQ(desk.clipboard, "");
  EXPECT_EQ(OpenFiles(), files);
}

TEST_F(ExportFaultsTest, MoreRowsThanASheetTakes) {
  OpenBrowser(browser);
  state.MSHFlexGrid2.grid.Replace({{"", "Batter"}, {2, CellColumn(kMostSheetRows)}});
  EXPECT_FALSE(ExportGrids(browser));
  ASSERT_EQ(desk.told.size(), 1U);
  EXPECT_NE(
      desk.told[0].find("\"BattingDataByGame\" has 1048577 rows, and a worksheet takes 1048576"),
      std::string::npos)
      << desk.told[0];
  EXPECT_EQ(Reports(), Strings{});

  // Rows without a figure take no time.
  Execute(
      "INSERT INTO Matchups WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
      "WHERE i < 1048577) SELECT NULL, iif(i > 1048574, i, NULL) FROM n");
  ExportTables(browser);
  const Book book(Report(Reports().at(0)));
  ASSERT_EQ(book.sheets.size(), 6U);
  EXPECT_EQ(book.sheets[5], "Matchups 2|usual||visible");
  EXPECT_EQ(book.cells.at("Matchups!B1048576"), "n|1048575");
  EXPECT_EQ(book.Rows("Matchups 2", 1, 4),
            (Strings{"A s|Matchup, B s|Tally", "B n|1048576", "B n|1048577", ""}));
}

// No file may grow beyond so many bytes, as on a disk that is full by then.
TEST_F(ExportFaultsTest, FullDisks) {
  Execute(
      "INSERT INTO Batting (Batter, Team, k) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT "
      "i + 1 FROM n WHERE i < 2500) SELECT hex(randomblob(20)), 'Ants', i FROM n");
  enum Outcome { kTold, kWhole, kWrong };
  const auto exportBelow = [this](rlim_t most) {
    const pid_t child = fork();
    if (child == 0) {
      signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{most, most};
      setrlimit(RLIMIT_FSIZE, &limit);
      desk.told.clear();
      std::filesystem::remove_all(folder / "Game Rpts");
      const auto files = OpenFiles();
      ExportTables(browser);
      if (OpenFiles() != files) _exit(3);
      const bool told =
          desk.told.size() == 1 &&
          desk.told[0].ends_with("could not be written: the disk is full. Nothing of it is left.");
      const bool whole = desk.told.size() == 1 && desk.told[0].starts_with("MS Access database ");
      _exit(told && Reports().empty() ? kTold : whole && Reports().size() == 1 ? kWhole : kWrong);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WEXITSTATUS(status);
  };
  ExportTables(browser);
  const std::string whole = Report(Reports().at(0));
  const auto cells = Book(whole).cells;
  // The longest file is that of the large sheet before it is packed.
  const rlim_t most =
      std::stoul(Lines("-c 'import sys, zipfile; print(max(entry.file_size for entry "
                       "in zipfile.ZipFile(sys.argv[1]).infolist()))'",
                       whole)
                     .at(0));
  std::vector<rlim_t> sizes{most - 1,   most - 2,   most - 12,  most - 15,
                            most - 100, most - 400, most - 1500};
  for (rlim_t size = 1; size < most; size += 1 + size * 2 / 5) sizes.push_back(size);
  for (rlim_t size = 4000; size < 12000; size += 512) sizes.push_back(size);
  for (const rlim_t size : sizes) EXPECT_EQ(exportBelow(size), kTold) << size << " of " << most;
  ASSERT_EQ(exportBelow(most), kWhole);
  EXPECT_TRUE(Book(Report(Reports().at(0))).cells == cells);
}

}  // namespace
}  // namespace dtb
