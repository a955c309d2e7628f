#include "browser/opening.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>

#include "database_test.h"

namespace dtb {
namespace {

// Holds the queries of one table back until it is let go, or until nobody wants them any more.
struct HeldDatabase : SqliteDatabase {
  using SqliteDatabase::SqliteDatabase;
  void Run(const Statement& query, RowSink& rows) override {
    {
      std::unique_lock lock(mutex);
      asked.push_back(query.text);
      const bool held = query.text.find("FROM Batting") != std::string::npos;
      if (held) changed.wait(lock, query.stop, [this] { return letGo; });
    }
    SqliteDatabase::Run(query, rows);
  }
  void LetGo() {
    const std::scoped_lock lock(mutex);
    letGo = true;
    changed.notify_all();
  }

  std::mutex mutex;
  std::condition_variable_any changed;
  bool letGo = false;
  Strings asked;
};

class OpeningTest : public DatabaseTest {
 protected:
  static constexpr std::chrono::minutes kLong{1};  // ends at once where all is well

  void SetUp() override {
    DatabaseTest::SetUp();
    Execute(
        "INSERT INTO BoxScores (Team, GameID) VALUES ('Ants', '1');"
        "INSERT INTO Batting (Batter, Team) VALUES ('Al', 'Ants');"
        "INSERT INTO WinLoss VALUES ('Ants', 1, NULL); INSERT INTO Matchups VALUES ('A vs B', 1)");
  }

  HeldDatabase held{file};
  Platform platform = PlatformOf(desk, held, desk);
  BrowserState state;
  Browser browser{state, platform};
};

TEST_F(OpeningTest, ReadsTheTabInFrontFirstAndEachTableOnce) {
  Opening opening(browser);
  opening.ReadBehind([] {});
  opening.Await(browser_tab::kLineScores, kLong);
  opening.Show();
  EXPECT_TRUE(opening.Finished(browser_tab::kLineScores));
  EXPECT_EQ(state.MSHFlexGrid1.grid.ColumnAt(line_score_column::kGameID).ink, kClickableBlue);

  opening.Prefer(browser_tab::kWinLoss);
  opening.Await(browser_tab::kWinLoss, kLong);
  opening.Show();
  EXPECT_TRUE(state.MSHFlexGrid9.visible.value());
  EXPECT_TRUE(state.MSHFlexGrid10.visible.value());
  EXPECT_FALSE(opening.Finished(browser_tab::kBattingByGame)) << "still being read";
  EXPECT_FALSE(state.MSHFlexGrid2.visible.value());

  held.LetGo();
  opening.FinishAll();
  EXPECT_TRUE(opening.FinishedAll());
  EXPECT_EQ(state.MSHFlexGrid2.grid.Text(1, 1), "Al");
  EXPECT_TRUE(state.MSHFlexGrid5.visible.value());
  std::ranges::sort(held.asked);
  EXPECT_EQ(held.asked.size(), 7U + 8U) << "and those of the season";
  EXPECT_EQ(std::ranges::adjacent_find(held.asked), held.asked.end());
  opening.TellFaults();
  EXPECT_EQ(desk.told, Strings{});
}

TEST_F(OpeningTest, EndsWhileATableIsBeingRead) {
  Opening opening(browser);
  opening.ReadBehind([] {});
  opening.Await(browser_tab::kLineScores, kLong);
}

TEST_F(OpeningTest, TellsAFaultOnceAndAtTheEnd) {
  std::filesystem::remove(file);
  held.LetGo();  // two threads read, so the second table may be asked before the first fails
  Opening opening(browser);
  opening.ReadBehind([] {});
  opening.TellFaults();
  const auto before = desk.told;
  opening.FinishAll();
  opening.TellFaults();
  opening.TellFaults();
  EXPECT_EQ(before, Strings{});
  EXPECT_EQ(desk.told.size(), 1U);
  ReadAgain(browser);
  EXPECT_EQ(desk.told.size(), 2U);
  EXPECT_FALSE(state.MSHFlexGrid1.visible.value());
}

}  // namespace
}  // namespace dtb
