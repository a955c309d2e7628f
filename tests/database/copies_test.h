// A database with copies, and games that are quickly saved into it.
#pragma once

#include "database_test.h"
#include "platform/sqlite/sqlite_copies.h"

namespace dtb {

class CopiesTest : public DatabaseTest {
 protected:
  // A game of one batter a side, saved at this minute of the day.
  void Save(int minute, const std::string& visitors, int runs, const std::string& home,
            int homeRuns) {
    desk.time.minute = minute;
    Table table(ports, visitors, home);
    for (const auto& [side, total] : {std::pair{Side::Visitors, runs}, {Side::Home, homeRuns}}) {
      const SideFields fields = SideOf(table.board, side);
      const std::string text = std::to_string(total);
      table.sheet.grd_BoxScore.SetText(fields.boxScoreRow, 1 + kTotalRuns, text);
      fields.score.at(kTotalRuns).text.Set(text);
      table.Put(side, 1, {{stat_column::kBatter, "Joe"}, {stat_column::kPlayed, "1"}});
    }
    if (withPlays) table.PlayThree();
    SaveGame(table.board);
    ASSERT_TRUE(desk.told.back().starts_with("Data successfully")) << desk.told.back();
  }
  // Rows in Batting, Pitching, BoxScores, WinLoss and Matchups.
  std::string Counts() const {
    std::string counts;
    for (const TableColumns& table : SavedTables()) counts += Count(table.table) + " ";
    return counts;
  }

  // Rows in Games, Plays, Runs and Decisions.
  std::string PlayCounts() const {
    std::string counts;
    for (const TableColumns& table : PlayTables()) counts += Count(table.table) + " ";
    return counts;
  }

  bool withPlays = false;  // of the games that are saved
  SqliteCopies copies{file, std::chrono::milliseconds(20)};
  Platform ports = PlatformOf(desk, database, workbooks, folder, &copies);
  BrowserState state;
  Browser browser{state, ports};
};

}  // namespace dtb
