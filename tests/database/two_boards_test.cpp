// Two boards at one table: whatever they save, take out, delete and bring back, and in which order,
// the database holds what was told, and no copy is lost.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <set>

#include "browser/chosen_game.h"
#include "browser/queries.h"
#include "copies_test.h"
#include "database/backups.h"
#include "database/deletes.h"
#include "database/restore.h"
#include "database/rows.h"
#include "database/saved_games.h"
#include "soak_settings.h"

namespace dtb {
namespace {

using Games = std::set<std::string>;  // "GameID: Ants 4, Bees 2"

Strings TextsOf(const Games& games) { return {games.begin(), games.end()}; }

// A program of its own.
struct OneBoard {
  OneBoard(const std::filesystem::path& file, std::chrono::milliseconds longestWait)
      : database{file, longestWait}, copies{file, longestWait} {}

  [[nodiscard]] bool Told(std::string_view words) const {
    return std::ranges::any_of(desk.told, [words](const std::string& box) {
      return box.find(words) != std::string::npos;
    });
  }
  // Its list may be older than the last change of the other one.
  void TakeOut(unsigned row) {
    const auto lines = static_cast<unsigned>(state.MSHFlexGrid1.grid.rows());
    const auto choice = ChosenGame(state, lines < 2 ? 0 : static_cast<int>(1 + row % (lines - 1)));
    if (choice) TakeOutChosen(browser, choice);
  }
  void SaveAGame(const std::string& visitors, int runs, const std::string& home, int homeRuns) {
    Table table(ports, visitors, home);
    for (const auto& [side, total] : {std::pair{Side::Visitors, runs}, {Side::Home, homeRuns}}) {
      const SideFields fields = SideOf(table.board, side);
      const std::string text = std::to_string(total);
      table.sheet.grd_BoxScore.SetText(fields.boxScoreRow, 1 + kTotalRuns, text);
      fields.score.at(kTotalRuns).text.Set(text);
      table.Put(side, 1, {{stat_column::kBatter, "Joe"}, {stat_column::kPlayed, "1"}});
    }
    table.PlayThree();
    SaveGame(table.board);
  }

  TestDesk desk;
  SqliteDatabase database;
  SqliteCopies copies;
  XlsxWorkbooks workbooks;
  Platform ports = PlatformOf(desk, database, workbooks, {}, &copies);
  BrowserState state;
  Browser browser{state, ports};
};

class TwoBoards : public CopiesTest {
 protected:
  static Games GamesOf(Database& from) {
    Games games;
    for (const SavedGame& game : ReadSavedGames(from)) {
      games.insert(game.id + ": " + ScoreText(game));
    }
    return games;
  }

  // Each game has all its rows, and nothing else stands there.
  void ExpectWholeGames(std::size_t games) {
    const std::string twice = std::to_string(2 * games);
    EXPECT_EQ(Counts(),
              twice + " " + twice + " " + twice + " " + twice + " " + std::to_string(games) + " ");
    // The tables of the plays may not be made yet.
    for (const auto& [table, rows] : {std::pair{"Games", 1U}, {"Plays", 3U}, {"Runs", 2U}}) {
      EXPECT_EQ(CountOf(database, {std::string("SELECT count(*) FROM ") + table}), rows * games);
    }
    EXPECT_EQ(Stored("PRAGMA integrity_check"), Strings{"ok"});
  }

  unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  const unsigned seed_ = FromOutside("DTB_SEED", 1960);
  std::minstd_rand random_{seed_};
};

// One gesture after the other, and one while the other asks, against what was told of each.
class InTurns : public TwoBoards {
 protected:
  void Gesture(OneBoard& board, OneBoard* other);
  void Check(const std::string& after);

  OneBoard first_{file, std::chrono::milliseconds(20)};
  OneBoard second_{file, std::chrono::milliseconds(20)};

 private:
  void Save(OneBoard& board);
  void TakeOut(OneBoard& board);
  void BringBack(OneBoard& board);
  void LoseTheFile();
  // A copy came in place of a database that was lost.
  void HearOfRenewal(const OneBoard& board) {
    if (board.Told("The database is now the copy of ")) model_ = newest_;
    if (board.Told("An empty database is in place.")) model_.clear();
  }

  int gestures_ = 0;
  Games model_;
  Games newest_;                       // in the newest copy, while the database is lost
  std::map<std::string, Games> held_;  // by the copies
  std::set<Games> states_{Games()};    // that the database has had
};

void InTurns::Save(OneBoard& board) {
  constexpr const char* kTeams[] = {"Ants", "Bees", "Cats"};
  const std::string visitors = kTeams[Below(3)];
  const std::string home = kTeams[Below(3)];
  const auto runs = static_cast<int>(Below(5));
  const auto homeRuns = static_cast<int>(Below(5));
  board.SaveAGame(visitors, runs, home, homeRuns);
  HearOfRenewal(board);
  if (!board.Told("Data successfully recorded")) return;
  const std::string score =
      ": " + visitors + " " + std::to_string(runs) + ", " + home + " " + std::to_string(homeRuns);
  int added = 0;
  for (const std::string& game : GamesOf(database)) {
    if (model_.contains(game)) continue;
    EXPECT_TRUE(game.ends_with(score)) << game << score;
    model_.insert(game);
    ++added;
  }
  EXPECT_EQ(added, 1) << "no GameID stands twice";
}

void InTurns::TakeOut(OneBoard& board) {
  const unsigned row = Below(40);
  const StatGrid& list = board.state.MSHFlexGrid1.grid;
  if (list.rows() < 2) return;
  const SavedGame game = GameInRow(list, static_cast<int>(1 + row % (list.rows() - 1)));
  board.TakeOut(row);
  if (board.Told("The game is deleted.")) {
    // The list may be of yesterday: what goes is the game that the question named.
    const auto named = [&](const std::string& one) {
      return one.starts_with(game.id) &&
             board.Told("\n" + one.substr(game.id.size() + 2) + "\nGameID " + game.id);
    };
    EXPECT_EQ(std::erase_if(model_, named), 1U) << game.id;
  }
}

void InTurns::BringBack(OneBoard& board) {
  CopiesState shown;
  CopiesDesk copiesDesk{shown, board.ports};
  ListCopies(copiesDesk);
  if (shown.names.empty()) return;
  SelectCopy(copiesDesk, static_cast<int>(1 + Below(static_cast<unsigned>(shown.names.size()))));
  const std::string name = shown.names.at(static_cast<std::size_t>(shown.row) - 1);
  const auto copy = board.copies.OpenCopy(name);
  const Games games = GamesOf(*copy);
  BringBackSelected(copiesDesk);
  if (board.Told("The database is now the copy of ")) model_ = games;
}

void InTurns::LoseTheFile() {
  const auto names = CopiesNewestFirst(copies);
  if (names.empty() || copies.Examine() != DatabaseHealth::Sound) return;
  newest_ = GamesOf(*copies.OpenCopy(names.front()));
  if (Below(2) == 0) {
    std::filesystem::remove(file);
  } else {
    std::ofstream(file, std::ios::binary) << std::string(5000, 'x');
  }
}

void InTurns::Gesture(OneBoard& board, OneBoard* other) {
  board.desk.told.clear();
  // A few gestures a second.
  const int seconds = ++gestures_ / 3;
  board.desk.time = {2026, 11, 18, 10 + seconds / 3600, seconds / 60 % 60, seconds % 60};
  board.desk.answer = "Restore";
  board.desk.whileAsked = {};
  if (other != nullptr) {
    board.desk.whileAsked = [this, other] {
      Gesture(*other, nullptr);
      Check("within another gesture");
    };
  }
  switch (Below(12)) {
    case 0:
      PurgeAll(board.browser.platform, kBrowserTitle);
      if (board.Told("Delete of all statistics is complete.")) model_.clear();
      break;
    case 1:
      BringBack(board);
      break;
    case 2:
      if (other != nullptr && Below(3) == 0) LoseTheFile();
      [[fallthrough]];
    case 3:
      OpenBrowser(board.browser);
      HearOfRenewal(board);
      break;
    case 4:
    case 5:
    case 6:
      TakeOut(board);
      break;
    default:
      Save(board);
  }
}

void InTurns::Check(const std::string& after) {
  try {
    EXPECT_EQ(TextsOf(GamesOf(database)), TextsOf(model_)) << after;
    ExpectWholeGames(model_.size());
  } catch (const ProgramError&) {
    return;  // it is lost, until somebody looks
  }
  states_.insert(model_);
  for (const std::string& name : copies.CopyNames()) {
    const auto copy = copies.OpenCopy(name);
    const Games games = GamesOf(*copy);
    EXPECT_TRUE(states_.contains(games)) << name << " holds what never was";
    const auto [known, isNew] = held_.try_emplace(name, games);
    EXPECT_EQ(known->second, games) << name << " is another one now";
  }
}

TEST_F(InTurns, TheDatabaseHoldsWhatWasTold) {
  const unsigned gestures = FromOutside("DTB_GESTURES", 150);
  for (unsigned i = 0; i < gestures && !HasFailure(); ++i) {
    const bool swap = Below(2) == 0;
    Gesture(swap ? second_ : first_, Below(3) == 0 ? nullptr : swap ? &first_ : &second_);
    Check("gesture " + std::to_string(i));
  }
  EXPECT_FALSE(HasFailure()) << Again();
}

// At the same time: each tells what it has saved and taken out, and that is what is there.
TEST_F(TwoBoards, AtTheSameTime) {
  const unsigned gestures = FromOutside("DTB_GESTURES", 25);
  int pipe[2];
  ASSERT_EQ(::pipe(pipe), 0);
  std::vector<pid_t> children;
  for (const char* name : {"Ants", "Bees"}) {
    children.push_back(fork());
    if (children.back() != 0) continue;
    random_.seed(seed_ + static_cast<unsigned>(*name));
    OneBoard board(file, std::chrono::milliseconds(60000));
    for (unsigned i = 0; i < gestures; ++i) {
      board.desk.told.clear();
      std::string line;
      if (Below(3) > 0) {
        line = std::string("+") + name + std::to_string(i) + "\n";
        board.SaveAGame(name + std::to_string(i), 1, "Cats", 0);
        if (!board.Told("Data successfully recorded")) line = "?" + board.desk.told.back() + "\n";
      } else {
        OpenBrowser(board.browser);
        const StatGrid& list = board.state.MSHFlexGrid1.grid;
        if (list.rows() < 2) continue;
        line = "-" + GameInRow(list, 1).visitors + "\n";
        TakeOutChosen(board.browser, ChosenGame(board.state, 1));
        if (board.Told("No copy of the database")) line = "?" + board.desk.told.at(1) + "\n";
        if (!board.Told("The game is deleted.")) continue;
      }
      if (write(pipe[1], line.data(), line.size()) < 0) _exit(1);
    }
    _exit(0);
  }
  close(pipe[1]);
  std::string told;
  for (char letter = 0; read(pipe[0], &letter, 1) == 1;) told += letter;
  close(pipe[0]);
  for (const pid_t child : children) {
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  std::multiset<std::string> expected;
  std::istringstream lines(told);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_NE(line[0], '?') << line;
    if (line[0] == '+') expected.insert(line.substr(1));
  }
  lines = std::istringstream(told);
  for (std::string line; std::getline(lines, line);) {
    if (line[0] == '-') {
      EXPECT_EQ(expected.erase(line.substr(1)), 1U) << line << " went twice";
    }
  }
  std::multiset<std::string> there;
  for (const SavedGame& game : ReadSavedGames(database)) there.insert(game.visitors);
  EXPECT_EQ(there, expected);
  ExpectWholeGames(expected.size());
  for (const std::string& name : copies.CopyNames()) EXPECT_EQ(copies.FaultOfCopy(name), "");
  EXPECT_FALSE(HasFailure()) << Again();
}

}  // namespace
}  // namespace dtb
