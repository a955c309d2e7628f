// A real database in a folder of its own, and a desk that answers for the person.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <sstream>
#include <utility>

#include "base/paths.h"
#include "browser/opening.h"
#include "database/save_game.h"
#include "database/saved_games.h"
#include "database/saved_tables.h"
#include "game/constant_update.h"
#include "game/plays.h"
#include "game/start_up.h"
#include "platform/quiet_desktop.h"
#include "platform/sqlite/sqlite_database.h"
#include "platform/xlsx/xlsx_workbooks.h"
#include "temporary_folder.h"

namespace dtb {

struct TestDesk final : QuietDesktop {
  void ShowRecorded(const std::string& message, BoxAlignment /*alignment*/) override {
    told.push_back(message);
  }
  void Confirm(const std::string& message, const std::string&) override { told.push_back(message); }
  void Show(const std::string& message, BoxIcon /*icon*/, const std::string& /*title*/) override {
    told.push_back(message);
  }
  bool Ask(const Question& question) override {
    told.push_back(question.text);
    if (whileAsked) std::exchange(whileAsked, {})();
    return yes && (refused.empty() || question.text.find(refused) == std::string::npos);
  }
  // The proof lets a game pass. Else the answer that begins as told, or the last one, which leaves
  // all as it is.
  std::size_t Choose(const Choice& choice) override {
    if (choice.title.starts_with("Proof")) return QuietDesktop::Choose(choice);
    told.push_back(choice.text);
    if (whileAsked) std::exchange(whileAsked, {})();
    for (const std::string& line : choice.lines) told.back() += "\n" + line;
    for (std::size_t i = 0; !answer.empty() && i < choice.answers.size(); ++i) {
      if (choice.answers[i].starts_with(answer)) return i;
    }
    return choice.answers.size() - 1;
  }
  bool ControlHeld() override { return control; }
  std::string Read(const std::string& section, const std::string& key,
                   const std::string& missing) override {
    const auto found = settings.find(section + "/" + key);
    return found == settings.end() ? missing : found->second;
  }
  void Write(const std::string& section, const std::string& key,
             const std::string& value) override {
    settings[section + "/" + key] = value;
  }
  LocalTime Now() override { return time; }
  std::string NowText() override { return timeText; }
  std::optional<std::filesystem::path> SaveFile(const SaveFileRequest& request) override {
    proposed = request.fileName;
    return chosen;
  }
  void Open(const std::string& page) override { opened.push_back(page); }
  bool Installed() override { return installed; }
  bool OpenWorkbook(const std::filesystem::path& workbook) override {
    opened.push_back(TextOf(workbook));
    return true;
  }
  void SetText(const std::string& text) override { clipboard = text; }

  std::vector<std::string> told;     // boxes and questions in order
  bool yes = true;                   // to every question
  std::string refused;               // what stands in a question that gets a No
  std::string answer;                // to a question with answers of its own
  std::function<void()> whileAsked;  // happens while the next question waits, and no more
  bool control = false;
  std::string timeText = "11/18/2026 10:44:13 AM";
  std::map<std::string, std::string> settings;
  LocalTime time{2026, 11, 18, 10, 44, 13};
  std::string proposed;                         // name of the file to be saved
  std::optional<std::filesystem::path> chosen;  // in the dialog for it
  bool installed = true;                        // a spreadsheet program
  std::vector<std::string> opened;              // pages and workbooks
  std::string clipboard;
};

// The same ports with another shelf.
inline Platform WithShelf(const Platform& ports, Seasons& shelf) {
  return {ports.boxes,     ports.dialogs,      ports.pictures,     ports.keyboard, ports.settings,
          ports.pages,     ports.database,     ports.copies,       ports.old,      shelf,
          ports.workbooks, ports.spreadsheets, ports.clipboard,    ports.clock,    ports.sounds,
          ports.randoms,   ports.archives,     ports.programFolder};
}

// The superuser may write anywhere, and tests of a container run as one. Windows has none.
class AsNobody {
 public:
#ifdef _WIN32
  AsNobody() {}
#else
  AsNobody() : before_(geteuid()) {
    if (before_ == 0) left_ = seteuid(65534) == 0;
  }
  ~AsNobody() {
    if (left_ && seteuid(before_) != 0) std::abort();
  }

 private:
  uid_t before_;
  bool left_ = false;
#endif
};

using Strings = std::vector<std::string>;

// The data rows of a grid from column 1 on, cells parted by "|".
inline Strings RowsOf(const StatGrid& grid) {
  Strings rows;
  for (int row = 1; row < grid.rows(); ++row) {
    std::string text;
    for (int column = 1; column < grid.columns(); ++column) {
      text += (column > 1 ? "|" : "") + std::string(grid.Text(row, column));
    }
    rows.push_back(text);
  }
  return rows;
}

inline Strings ColumnOf(const StatGrid& grid, int column) {
  Strings texts;
  for (int row = 1; row < grid.rows(); ++row) texts.emplace_back(grid.Text(row, column));
  return texts;
}

// One run of the program: a board with two teams of a player or more, ready to be saved.
struct Table {
  Table(Platform& platform, const std::string& visitors, const std::string& home)
      : board{state, sheet, log, platform} {
    StartUp(board);
    for (const auto& [side, team] : {std::pair{Side::Visitors, visitors}, {Side::Home, home}}) {
      const SideFields fields = SideOf(board, side);
      sheet.grd_BoxScore.SetText(fields.boxScoreRow, 0, team);
      fields.list.Append("Anyone");
      fields.list.Select(0);
      fields.pitcher.Set("Last of " + team);
    }
  }
  // Cells of a row: "2=1 11=Joe" puts "1" into column 2 and "Joe" into column 11.
  void Put(Side side, int row, const std::vector<std::pair<int, std::string>>& cells) {
    for (const auto& [column, text] : cells) SideOf(board, side).grid.SetText(row, column, text);
  }
  // Al singles, Bo brings both home, O'Neill strikes out.
  void PlayThree() {
    state.plays.Append({.batter = "Al",
                        .pitcher = "k",
                        .basesKept = true,
                        .moves = {{"Al", kAtBatPlace, kFirstBase, "", false, false, false}},
                        .after = {"Al", "", ""}});
    state.plays.Append({.outcome = Outcome::Homer,
                        .batter = "Bo",
                        .pitcher = "l",
                        .basesKept = true,
                        .moves = {{"Al", kFirstBase, kHomePlate, "k", true, false, true},
                                  {"Bo", kAtBatPlace, kHomePlate, "l", true, true, false}},
                        .after = {}});
    state.plays.Append({.half = 1,
                        .outsBefore = 2,
                        .outcome = Outcome::Strikeout,
                        .batter = "O'Neill",
                        .pitcher = "K",
                        .moves = {},
                        .after = {}});
  }
  std::string Cell(Side side, int row, int column) {
    return std::string(SideOf(board, side).grid.Text(row, column));
  }

  BoardState state;
  StatSheet sheet;
  EventLog log;
  Board board;
};

// Saves a game with a GameID of its own.
inline void SaveOne(Platform& ports, TestDesk& desk, int run, int game) {
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
  table.PlayThree();
  SaveGame(table.board);
}

class DatabaseTest : public testing::Test {
 protected:
  DatabaseTest() { Execute(ReadAll(DTB_SCHEMA)); }
  ~DatabaseTest() override { std::filesystem::remove_all(folder); }

  static std::string ReadAll(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  void Execute(const std::string& statements) const {
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(statements);
  }
  // What the file holds, read past the program: cells parted by "|", Null as "-".
  Strings Stored(const std::string& query) const {
    SQLite::Database plain(file.string(), SQLite::OPEN_READWRITE);
    SQLite::Statement statement(plain, query);
    Strings rows;
    while (statement.executeStep()) {
      std::string row;
      for (int i = 0; i < statement.getColumnCount(); ++i) {
        const auto value = statement.getColumn(i);
        row += (i > 0 ? "|" : "") + (value.isNull() ? "-" : value.getString());
      }
      rows.push_back(row);
    }
    return rows;
  }
  std::string Count(const std::string& table) const {
    return Stored("SELECT count(*) FROM " + table).front();
  }

  // A sound file, and every game in it whole.
  void CheckFile(int games) const {
    EXPECT_EQ(Stored("PRAGMA integrity_check"), Strings{"ok"});
    EXPECT_GT(games, 0);
    for (const auto& [table, rowsOfAGame] : {std::pair{"Batting", 24},
                                             {"Pitching", 2},
                                             {"BoxScores", 2},
                                             {"Plays", 3},
                                             {"Runs", 2},
                                             {"Games", 1}}) {
      const std::string name = table;
      EXPECT_EQ(Stored("SELECT DISTINCT count(*) FROM " + name + " GROUP BY GameID"),
                Strings{std::to_string(rowsOfAGame)});
      EXPECT_EQ(Count(name), std::to_string(rowsOfAGame * games));
    }
    EXPECT_EQ(Count("WinLoss"), std::to_string(2 * games));
  }

  std::filesystem::path folder = MakeTemporaryFolder("season");
  std::filesystem::path file = folder / kDatabaseFile;
  SqliteDatabase database{file, std::chrono::milliseconds(20)};
  TestDesk desk;
  XlsxWorkbooks workbooks;
  Platform ports = PlatformOf(desk, database, workbooks, folder);
};

}  // namespace dtb
