#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>

#include "database_test.h"

namespace dtb {
namespace {

// Saves a game with a GameID of its own.
void SaveOne(Platform& ports, TestDesk& desk, int run, int game) {
  desk.time = {run / 10 % 100,   1 + run % 10,    game / 10000,
               game / 1000 % 10, game / 100 % 10, game % 100};
  Table table(ports, "Ants", "Bees");
  for (const Side side : {Side::Visitors, Side::Home}) {
    for (int row = 1; row <= 12; ++row) {
      table.Put(side, row,
                {{stat_column::kBatter, "Batter " + std::to_string(row)},
                 {stat_column::kAtBats, "4"},
                 {stat_column::kPlayed, "1"}});
    }
  }
  SaveGame(table.board);
}

// Killed at any moment of a save, the program leaves a sound file with every game whole or absent.
TEST_F(DatabaseTest, SavesSurviveKills) {
  constexpr int kKills = 200;
  std::mt19937 random(1960);
  std::uniform_real_distribution<double> moment(0, 2);
  std::chrono::duration<double> wait = std::chrono::milliseconds(20);
  int duringASave = 0;
  int games = 0;
  for (int run = 0; run < kKills; ++run) {
    const pid_t child = fork();
    for (int game = 0; child == 0; ++game) SaveOne(ports, desk, run, game);
    ASSERT_GT(child, 0);
    std::this_thread::sleep_for(wait * moment(random));
    ASSERT_EQ(kill(child, SIGKILL), 0);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    if (std::filesystem::exists(file.string() + "-journal")) ++duringASave;
    const int gamesNow = std::stoi(Count("Matchups"));
    // About every other child comes to the end of a save, on any disk.
    wait *= gamesNow > games ? 0.95 : 1.05;
    games = gamesNow;
  }
  EXPECT_GT(duringASave, kKills / 10);

  EXPECT_EQ(Stored("PRAGMA integrity_check"), Strings{"ok"});
  EXPECT_GT(games, kKills / 10);
  for (const auto& [table, rowsOfAGame] :
       {std::pair{"Batting", 24}, {"Pitching", 2}, {"BoxScores", 2}}) {
    const std::string name = table;
    EXPECT_EQ(Stored("SELECT DISTINCT count(*) FROM " + name + " GROUP BY GameID"),
              Strings{std::to_string(rowsOfAGame)});
    EXPECT_EQ(Count(name), std::to_string(rowsOfAGame * games));
  }
  EXPECT_EQ(Count("WinLoss"), std::to_string(2 * games));
}

}  // namespace
}  // namespace dtb
