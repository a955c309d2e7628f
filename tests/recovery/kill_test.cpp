// The game in progress in a real file, while its program is killed.
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <limits>
#include <random>

#include "core/fake_platform.h"
#include "game/recovery.h"
#include "platform/qt/qt_recovery_store.h"
#include "soak_settings.h"
#include "temporary_folder.h"

namespace dtb {
namespace {

// What a doomed program tells of a gesture: that its game is about to be kept, and that it was.
struct Report {
  std::size_t game;  // hash of the bytes
  bool kept;
};

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

// From now on a file that grows beyond so many bytes ends the program, in the middle of a write.
void DieBeyond(std::size_t bytes) {
  const rlimit noCore{0, 0};
  const rlimit most{bytes, bytes};
  if (setrlimit(RLIMIT_CORE, &noCore) != 0 || setrlimit(RLIMIT_FSIZE, &most) != 0) _exit(1);
}

// Plays gestures until it is killed, at the latest in the write of the given number.
[[noreturn]] void PlayOn(const QString& file, int pipe, unsigned seed, std::size_t lastWrite) {
  // What it leaves lies in the folder of the test.
  setenv("TMPDIR", QFileInfo(file).dir().filePath("doomed").toStdString().c_str(), 1);
  Game game;
  AidsState aids;
  QtRecoveryStore store(file);
  std::mt19937 random(seed);
  std::size_t writes = 0;
  game.history.Observe([&] {
    const std::string table = TableText(game.board, aids);
    const Report begun{std::hash<std::string>()(table), false};
    const Report kept{begun.game, true};
    if (write(pipe, &begun, sizeof begun) < 0) _exit(1);
    if (writes++ == lastWrite) DieBeyond(random() % table.size());
    store.Keep(table, false);
    if (write(pipe, &kept, sizeof kept) < 0) _exit(1);
  });
  const std::vector<std::string> others{"undo:", "redo:", "up:v", "row:v2", "row:h3", "move:p1"};
  for (;;) {
    const std::size_t choice = random() % (kLabels.size() + others.size());
    game.Do(choice < kLabels.size() ? kLabels[choice] : others[choice - kLabels.size()]);
  }
}

class RecoveryFile : public testing::Test {
 protected:
  ~RecoveryFile() override { std::filesystem::remove_all(folder); }

  // Lets a program play until so many reports came, or until it dies in a write; returns all that
  // it told.
  std::vector<Report> PlayAndDie(unsigned seed, std::size_t reportsWanted, std::size_t lastWrite) {
    int pipe[2];
    if (::pipe(pipe) != 0) return {};
    const pid_t child = fork();
    if (child == 0) PlayOn(file, pipe[1], seed, lastWrite);
    close(pipe[1]);
    std::vector<Report> reports;
    for (Report report{}; read(pipe[0], &report, sizeof report) == sizeof report;) {
      reports.push_back(report);
      if (reports.size() == reportsWanted) kill(child, SIGKILL);
    }
    close(pipe[0]);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), lastWrite == kNever ? SIGKILL : SIGXFSZ);
    return reports;
  }

  // At most the last gesture is missing, and what is there is whole.
  void CheckAndDiscard(const std::vector<Report>& reports) {
    QtRecoveryStore store(file);
    ASSERT_TRUE(store.mine()) << "the file of a dead program is free";
    const auto bytes = store.Load();
    const auto kept = std::ranges::count_if(reports, &Report::kept);
    if (kept >= 2) {
      ASSERT_TRUE(bytes);
      Game game(false);
      AidsState state;
      Aids aids{state, game.fake.ports};
      ASSERT_NO_THROW((void)ReadTable(*bytes, game.board, aids));
      // Of the gestures whose keeping returned, the last may still have been on its way.
      const std::size_t hash = std::hash<std::string>()(*bytes);
      const auto last = std::find_if(reports.rbegin(), reports.rend(),
                                     [hash](const Report& report) { return report.game == hash; });
      ASSERT_LE(std::count_if(reports.rbegin(), last, [](const Report& r) { return r.kept; }), 1);
    }
    store.Discard();
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      const auto name = entry.path().filename();
      EXPECT_TRUE(name == "game.lock" || name == "doomed") << name << " is half-written";
    }
  }

  std::filesystem::path folder = MakeTemporaryFolder("kill");
  QString file = QString::fromStdString((folder / "game").string());
  bool doomed = std::filesystem::create_directory(folder / "doomed");
};

constexpr std::size_t kMostGestures = 8;

TEST_F(RecoveryFile, SurvivesKillsAtAnyMoment) {
  const unsigned seed = FromOutside("DTB_SEED", 1960);
  const unsigned kills = FromOutside("DTB_KILLS", 100);
  std::mt19937 random(seed);
  for (unsigned run = 0; run < kills && !HasFailure(); ++run) {
    CheckAndDiscard(PlayAndDie(seed + run, 1 + random() % (2 * kMostGestures), kNever));
  }
  EXPECT_FALSE(HasFailure()) << Again();
}

TEST_F(RecoveryFile, SurvivesDeathsWithinAWrite) {
  const unsigned seed = FromOutside("DTB_SEED", 1960);
  const unsigned kills = FromOutside("DTB_KILLS", 100);
  std::mt19937 random(seed);
  for (unsigned run = 0; run < kills && !HasFailure(); ++run) {
    CheckAndDiscard(PlayAndDie(seed + run, kNever, random() % kMostGestures));
  }
  EXPECT_FALSE(HasFailure()) << Again();
}

// Dragging a piece gives a game with each move of the mouse, far more than a disk can take.
TEST_F(RecoveryFile, EndsWithTheLastMoveOfAGestureThatGoesOn) {
  QtRecoveryStore store(file);
  for (int round = 0; round < 20; ++round) {
    store.Keep("first", false);
    for (int move = 0; move <= 200; ++move) store.Keep(std::to_string(move), true);
    store.Wait();
    EXPECT_EQ(store.Load(), "200");
  }
}

}  // namespace
}  // namespace dtb
