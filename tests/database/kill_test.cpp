#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "database_test.h"
#include "soak_settings.h"

namespace dtb {
namespace {

constexpr char kStep = '.';
constexpr char kStored = 'S';

// Tells of each step of a save.
class TellingSave : public DatabaseSave {
 public:
  TellingSave(std::unique_ptr<DatabaseSave> save, int pipe) : save_(std::move(save)), pipe_(pipe) {}
  void Run(const Statement& query, RowSink& rows) override { save_->Run(query, rows); }
  void Append(const std::string& table, const std::vector<ColumnText>& row) override {
    Tell(kStep);
    save_->Append(table, row);
  }
  std::string AppendPlays(const std::vector<TableRow>& rows) override {
    Tell(kStep);
    std::string fault = save_->AppendPlays(rows);
    Tell(kStep);
    return fault;
  }
  void Commit() override {
    Tell(kStep);
    save_->Commit();
    Tell(kStored);
  }

 private:
  void Tell(char what) const {
    if (write(pipe_, &what, 1) != 1) _exit(1);
  }

  std::unique_ptr<DatabaseSave> save_;
  int pipe_;
};

struct TellingDatabase : Database {
  TellingDatabase(Database& inner, int end) : real(inner), pipe(end) {}
  void Run(const Statement& query, RowSink& rows) override { real.Run(query, rows); }
  std::vector<std::string> WhatItLacks() override { return real.WhatItLacks(); }
  std::unique_ptr<DatabaseChange> BeginChange() override { return real.BeginChange(); }
  std::unique_ptr<DatabaseSave> BeginSave(const std::vector<TableColumns>& tables) override {
    return std::make_unique<TellingSave>(real.BeginSave(tables), pipe);
  }
  Database& real;
  int pipe;
};

class SaveKills : public DatabaseTest {
 protected:
  // Saves games one after the other until it dies: by a kill after so many steps, or in the write
  // that takes a file beyond so many bytes. Returns what it told.
  std::string SaveAndDie(int run, std::size_t steps, rlim_t mostBytes) {
    int pipe[2];
    if (::pipe(pipe) != 0) return {};
    const pid_t child = fork();
    if (child == 0) {
      const rlimit noCore{0, 0};
      const rlimit most{mostBytes, mostBytes};
      if (setrlimit(RLIMIT_CORE, &noCore) != 0 || setrlimit(RLIMIT_FSIZE, &most) != 0) _exit(1);
      TellingDatabase telling(database, pipe[1]);
      Platform telled = PlatformOf(desk, telling, workbooks, folder);
      for (int game = 0;; ++game) SaveOne(telled, desk, run, game);
    }
    close(pipe[1]);
    std::string told;
    for (char what = 0; read(pipe[0], &what, 1) == 1;) {
      told += what;
      if (told.size() == steps) kill(child, SIGKILL);
    }
    close(pipe[0]);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), mostBytes == RLIM_INFINITY ? SIGKILL : SIGXFSZ);
    return told;
  }

  // Every game that was told to be stored is there; at most the one after it is there, too.
  void CheckGames(const std::string& told) {
    const auto stored = std::count(told.begin(), told.end(), kStored);
    const int now = std::stoi(Count("Matchups"));
    EXPECT_TRUE(now == games_ + stored || now == games_ + stored + 1)
        << stored << " told, " << now - games_ << " there";
    games_ = now;
  }

  int games_ = 0;
  const int kills_ = static_cast<int>(FromOutside("DTB_KILLS", 100));
  std::mt19937 random_{FromOutside("DTB_SEED", 1960)};
};

TEST_F(SaveKills, AtAnyStep) {
  constexpr std::size_t kMostSteps = 80;  // a game takes about half of them
  for (int run = 0; run < kills_ && !HasFailure(); ++run) {
    CheckGames(SaveAndDie(run, 1 + random_() % kMostSteps, RLIM_INFINITY));
  }
  CheckFile(games_);
  EXPECT_FALSE(HasFailure()) << Again();
}

TEST_F(SaveKills, WithinAWrite) {
  // The tables of the plays, and some games more, so that some are stored.
  constexpr rlim_t kGrowth = 49152;
  for (int run = 0; run < kills_ && !HasFailure(); ++run) {
    const rlim_t most = random_() % (std::filesystem::file_size(file) + kGrowth);
    CheckGames(SaveAndDie(run, std::string::npos, most));
  }
  CheckFile(games_);
  EXPECT_FALSE(HasFailure()) << Again();
}

}  // namespace
}  // namespace dtb
