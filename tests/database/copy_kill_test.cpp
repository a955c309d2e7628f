// The program dies at every moment of a copy and of a way back.
#include <fcntl.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include "copies_test.h"
#include "platform/sqlite/jet/jet_database.h"
#include "soak_settings.h"

namespace {

// Counts what changes a file, and dies before the step that is the last one.
int stepsMade = 0;
int lastStep = 0;

void Step() {
  if (++stepsMade == lastStep) kill(getpid(), SIGKILL);
}

}  // namespace

// The two calls that SQLite does not make itself.
extern "C" int rename(const char* from, const char* to) noexcept {
  Step();
  return renameat(AT_FDCWD, from, AT_FDCWD, to);
}
extern "C" int link(const char* from, const char* to) noexcept {
  Step();
  return linkat(AT_FDCWD, from, AT_FDCWD, to, 0);
}

namespace dtb {
namespace {

ssize_t SteppedWrite(int file, const void* bytes, size_t count, off_t at) {
  Step();
  return pwrite(file, bytes, count, at);
}
int SteppedUnlink(const char* path) {
  Step();
  return unlink(path);
}
int SteppedTruncate(int file, off_t size) {
  Step();
  return ftruncate(file, size);
}

class CopyKills : public CopiesTest {
 protected:
  CopyKills() {
    sqlite3_vfs& system = *sqlite3_vfs_find(nullptr);
    const auto set = [&system](const char* name, auto call) {
      system.xSetSystemCall(&system, name, reinterpret_cast<sqlite3_syscall_ptr>(call));
    };
    for (const char* write : {"pwrite", "pwrite64"}) set(write, SteppedWrite);
    set("unlink", SteppedUnlink);
    set("ftruncate", SteppedTruncate);
    for (int game = 1; game <= 3; ++game) Save(game, "Ants", game, "Bees", 0);
    copies.MakeCopy("three.mdb");
    for (int game = 4; game <= 30; ++game) Save(game, "Ants", game, "Bees", 0);
    copies.MakeCopy("thirty.mdb");
  }
  ~CopyKills() override {
    sqlite3_vfs& system = *sqlite3_vfs_find(nullptr);
    system.xSetSystemCall(&system, nullptr, nullptr);
  }

  // Runs the operation once to its end, then again and again in a program that dies in it, looking
  // each time.
  template <class Prepare, class Operation, class Look>
  void Kill(Prepare prepare, Operation operation, Look look) {
    prepare();
    stepsMade = 0;
    operation();
    const int steps = stepsMade;
    ASSERT_GT(steps, 3);
    // Twice the steps, since every other way back brings another copy.
    const int kills = static_cast<int>(FromOutside("DTB_KILLS", static_cast<unsigned>(2 * steps)));
    std::mt19937 random(FromOutside("DTB_SEED", 1960));
    for (int run = 0; run < kills && !HasFailure(); ++run) {
      prepare();
      // Each step once, then any.
      const int last = run < steps ? run + 1 : 1 + static_cast<int>(random() % steps);
      const pid_t child = fork();
      if (child == 0) {
        stepsMade = 0;
        lastStep = last;
        operation();
        _exit(0);
      }
      int status = 0;
      EXPECT_EQ(waitpid(child, &status, 0), child);
      EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
      look();
      EXPECT_FALSE(HasFailure()) << "at step " << last << " of " << steps << ". " << Again();
    }
  }

  bool IsWhole(const char* copy) {
    return Stored("PRAGMA integrity_check") == Strings{"ok"} && copies.EqualsCopy(copy);
  }
};

TEST_F(CopyKills, InTheMiddleOfACopy) {
  Kill([&] { copies.RemoveCopy("new.mdb"); }, [&] { copies.MakeCopy("new.mdb"); },
       [&] {
         EXPECT_TRUE(IsWhole("thirty.mdb"));
         EXPECT_TRUE(copies.CopySize("new.mdb") == 0 || copies.EqualsCopy("new.mdb"));
       });
}

TEST_F(CopyKills, InTheMiddleOfABringBack) {
  const char* other = "three.mdb";
  Kill(
      [&] {
        copies.BringBack(other);
        other = other == std::string("three.mdb") ? "thirty.mdb" : "three.mdb";
      },
      [&] { copies.BringBack(other); },
      [&] { EXPECT_TRUE(IsWhole("three.mdb") || IsWhole("thirty.mdb")); });
}

// The old file, or the new database with all its rows and the old file beside it.
TEST_F(CopyKills, InTheMiddleOfATakingOver) {
  const std::string old = ReadAll(std::filesystem::path(DTB_JET_FILES) / "jet4.mdb");
  JetDatabase jet(file);
  std::ofstream(file, std::ios::binary) << old;
  jet.TakeOver("aside.mdb");
  const std::string rows = Counts();
  Kill(
      [&] {
        for (const char* name : {kDatabaseFile, "aside.mdb"}) {
          std::filesystem::remove(folder / name);
        }
        std::ofstream(file, std::ios::binary) << old;
      },
      [&] { jet.TakeOver("aside.mdb"); },
      [&] {
        if (ReadAll(file) == old) return;
        EXPECT_EQ(Stored("PRAGMA integrity_check"), Strings{"ok"});
        EXPECT_EQ(Counts(), rows);
        EXPECT_EQ(ReadAll(folder / "aside.mdb"), old);
      });
}

TEST_F(CopyKills, InTheMiddleOfARenewal) {
  const std::string damaged(5000, 'x');
  Kill(
      [&] {
        std::filesystem::remove(file);
        std::ofstream(file, std::ios::binary) << damaged;
        std::ofstream(file.string() + "-journal") << damaged;
        std::filesystem::remove(folder / "aside.mdb");
      },
      [&] { copies.Renew("thirty.mdb", "aside.mdb"); },
      [&] {
        if (ReadAll(file) == damaged) return;
        EXPECT_TRUE(IsWhole("thirty.mdb"));
        EXPECT_EQ(ReadAll(folder / "aside.mdb"), damaged);
      });
}

}  // namespace
}  // namespace dtb
