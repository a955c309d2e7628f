// The game in progress in a real file, while its program is killed.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>
#include <thread>

#include "aids/recovery.h"
#include "core/fake_platform.h"
#include "platform/qt/qt_recovery_store.h"

namespace dtb {
namespace {

// What a doomed program tells of a gesture: that its game is about to be kept, and that it was.
struct Report {
  std::size_t game;  // hash of the bytes
  bool kept;
};

// Plays gestures until it is killed.
[[noreturn]] void PlayOn(const QString& file, int pipe, unsigned seed) {
  Game game;
  AidsState aids;
  QtRecoveryStore store(file);
  game.history.Observe([&] {
    const std::string table = TableText(game.board, aids);
    const Report begun{std::hash<std::string>()(table), false};
    const Report kept{begun.game, true};
    if (write(pipe, &begun, sizeof begun) < 0) _exit(1);
    store.Keep(table, false);
    if (write(pipe, &kept, sizeof kept) < 0) _exit(1);
  });
  std::mt19937 random(seed);
  const std::vector<std::string> others{"undo:", "redo:", "up:v", "row:v2", "row:h3", "move:p1"};
  for (;;) {
    const std::size_t choice = random() % (kLabels.size() + others.size());
    game.Do(choice < kLabels.size() ? kLabels[choice] : others[choice - kLabels.size()]);
  }
}

std::vector<Report> ReportsOf(int pipe) {
  std::vector<Report> reports;
  for (Report report{}; read(pipe, &report, sizeof report) == sizeof report;) {
    reports.push_back(report);
  }
  return reports;
}

// At most the last gesture is missing, and what is there is whole.
TEST(RecoveryFile, SurvivesKillsAtAnyMoment) {
  constexpr int kKills = 300;
  std::string folderName = (std::filesystem::temp_directory_path() / "killXXXXXX").string();
  const std::filesystem::path folder = mkdtemp(folderName.data());
  const QString file = QString::fromStdString((folder / "game").string());
  std::mt19937 random(1960);
  std::size_t gestures = 0;
  for (int run = 0; run < kKills; ++run) {
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const pid_t child = fork();
    if (child == 0) PlayOn(file, pipe[1], static_cast<unsigned>(run));
    ASSERT_GT(child, 0);
    close(pipe[1]);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 40000));
    ASSERT_EQ(kill(child, SIGKILL), 0);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    const std::vector<Report> reports = ReportsOf(pipe[0]);
    close(pipe[0]);
    const auto kept = static_cast<std::ptrdiff_t>(
        std::ranges::count_if(reports, [](const Report& report) { return report.kept; }));
    gestures += static_cast<std::size_t>(kept);

    QtRecoveryStore store(file);
    ASSERT_TRUE(store.mine()) << "the file of a dead program is free";
    const auto bytes = store.Load();
    if (kept < 2) {
      store.Discard();
      continue;
    }
    ASSERT_TRUE(bytes);
    Game game(false);
    AidsState state;
    Aids aids{state, game.fake.ports};
    ASSERT_NO_THROW((void)ReadTable(*bytes, game.board, aids));
    // Of the gestures whose keeping returned, the last may still have been on its way.
    const std::size_t hash = std::hash<std::string>()(*bytes);
    const auto last = std::find_if(reports.rbegin(), reports.rend(),
                                   [hash](const Report& report) { return report.game == hash; });
    const auto missing =
        std::count_if(reports.rbegin(), last, [](const Report& r) { return r.kept; });
    ASSERT_LE(missing, 1) << "run " << run << " of " << reports.size() << " reports";
    store.Discard();
  }
  EXPECT_GT(gestures, 1000U);
  QtRecoveryStore(file).Discard();
  EXPECT_TRUE(std::filesystem::is_empty(folder)) << "something half-written is left";
  std::filesystem::remove_all(folder);
}

// Dragging a piece gives a game with each move of the mouse, far more than a disk can take.
TEST(RecoveryFile, EndsWithTheLastMoveOfAGestureThatGoesOn) {
  std::string folderName = (std::filesystem::temp_directory_path() / "moveXXXXXX").string();
  const std::filesystem::path folder = mkdtemp(folderName.data());
  {
    QtRecoveryStore store(QString::fromStdString((folder / "game").string()));
    for (int round = 0; round < 20; ++round) {
      store.Keep("first", false);
      for (int move = 0; move <= 200; ++move) store.Keep(std::to_string(move), true);
      store.Wait();
      EXPECT_EQ(store.Load(), "200");
    }
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace dtb
