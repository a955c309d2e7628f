// Databases as nobody should have them: whatever stands in the file, the program tells of it and
// loses nothing. Each is spoiled and used in a process of its own, which a fault ends and nothing
// else.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <set>

#include "book/book_pages.h"
#include "browser/box_score.h"
#include "browser/chosen_game.h"
#include "browser/exports.h"
#include "browser/queries.h"
#include "copies_test.h"
#include "database/backups.h"
#include "database/deletes.h"
#include "database/kept_record.h"
#include "database/restore.h"
#include "platform/sqlite/sqlite_seasons.h"
#include "season/season_figures.h"
#include "season/season_leaders.h"
#include "season/season_pages.h"
#include "season/season_standings.h"
#include "soak_settings.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;

// The rows of all tables; none where the file cannot be read.
using Rows = std::map<std::string, std::multiset<std::string>>;
using Files = std::map<fs::path, std::string>;

class HostileDatabase : public CopiesTest {
 protected:
  HostileDatabase() {
    withPlays = true;
    Save(1, "Ants", 4, "Bees", 2);
    Save(2, "Ants", 5, "Bees", 3);
    Save(3, "Bees", 1, "Cats", 1);
    copies.MakeCopy(CopyName({2026, 11, 17}));
    sound_ = ReadAll(file);
  }

  // One database and what is done with it; both depend on the seed alone.
  void Try(unsigned seed) {
    const pid_t child = fork();
    if (child == 0) {
      random_.seed(seed);
      constexpr unsigned kMostSeconds = 120;
      alarm(kMostSeconds);
      for (unsigned left = 1 + Below(3); left > 0; --left) Spoil();
      for (unsigned left = 6; left > 0 && !HasFailure(); --left) Use();
      _exit(HasFailure() ? 1 : 0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "To see it again: DTB_SEED=" << seed
                         << " DTB_DATABASES=1 dtb_database_tests --gtest_filter=HostileDatabase.*";
    for (const auto& entry : fs::directory_iterator(folder)) fs::remove_all(entry.path());
    std::ofstream(file, std::ios::binary) << sound_;
    copies.MakeCopy(CopyName({2026, 11, 17}));
  }

 private:
  unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
  template <class Things>
  auto OneOf(const Things& things) {
    return *(std::begin(things) + Below(static_cast<unsigned>(std::size(things))));
  }

  void Spoil();
  void SpoilShape();
  void SpoilValues();
  void SpoilBytes(const fs::path& spoiled);
  void SpoilKind();
  void SpoilWhatStandsBeside();
  void Use();
  void UseForReading();
  void SaveAGame();
  void UseCopies();
  void MakePages();

  std::optional<Rows> Look() const;
  Files Copies() const;
  [[nodiscard]] bool Told(std::string_view words) const {
    return std::ranges::any_of(desk.told, [words](const std::string& box) {
      return box.find(words) != std::string::npos;
    });
  }

  std::string sound_;
  std::minstd_rand random_;
};

// Statements that SQLite refuses leave the file as it is.
void TryToExecute(const fs::path& file, const std::string& statements) {
  try {
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(statements);
  } catch (const SQLite::Exception&) {
    return;
  }
}

std::string Replaced(std::string text, const std::string& mark, const std::string& by) {
  for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at + by.size())) {
    text.replace(at, mark.size(), by);
  }
  return text;
}

void HostileDatabase::Spoil() {
  switch (Below(6)) {
    case 0:
    case 1:
      return SpoilShape();
    case 2:
      return SpoilValues();
    case 3:
      return SpoilBytes(Below(4) > 0 ? file : folder / kCopiesFolder / CopyName({2026, 11, 17}));
    case 4:
      return SpoilKind();
    default:
      return SpoilWhatStandsBeside();
  }
}

// "T" is a table and "C" one of its columns.
void HostileDatabase::SpoilShape() {
  static const char* const kShapes[] = {
      "DROP TABLE [T]",
      "ALTER TABLE [T] DROP COLUMN [C]",
      "ALTER TABLE [T] RENAME COLUMN [C] TO [it's \"odd\"]",
      "ALTER TABLE [T] RENAME TO [Other]",
      "ALTER TABLE [T] ADD COLUMN [new] INTEGER NOT NULL DEFAULT 7",
      "ALTER TABLE [T] ADD COLUMN [more] AS ([C] + 1)",
      "CREATE TABLE X AS SELECT * FROM [T]; DROP TABLE [T]; ALTER TABLE X RENAME TO [T]",
      "CREATE TABLE X AS SELECT * FROM [T]; DROP TABLE [T]; CREATE VIEW [T] AS SELECT * FROM X",
      "ALTER TABLE [T] RENAME TO X; CREATE VIEW [T] AS SELECT *, 1 / [C] FROM X",
      "CREATE VIEW Loop AS SELECT * FROM [T]; DROP TABLE [T]; CREATE VIEW [T] AS SELECT * FROM "
      "Loop",
      "DROP TABLE [T]; CREATE TABLE [T] ([C] PRIMARY KEY) WITHOUT ROWID",
      "DROP TABLE [T]; CREATE TABLE [T] ([C] ANY) STRICT; INSERT INTO [T] VALUES (x'00ff')",
      "DROP TABLE [T]; CREATE TABLE [T] (rowid TEXT, [C] TEXT); INSERT INTO [T] VALUES ('a', 'b')",
      "DROP TABLE [T]; CREATE VIRTUAL TABLE [T] USING fts5([C])",
      "CREATE TRIGGER A BEFORE INSERT ON [T] BEGIN SELECT RAISE(ABORT, 'no'); END",
      "CREATE TRIGGER A BEFORE INSERT ON [T] BEGIN SELECT RAISE(IGNORE); END",
      "CREATE TRIGGER A BEFORE DELETE ON [T] BEGIN SELECT RAISE(ROLLBACK, 'no'); END",
      "CREATE TRIGGER A BEFORE DELETE ON [T] BEGIN SELECT RAISE(IGNORE); END",
      "CREATE TRIGGER A AFTER INSERT ON [T] BEGIN DELETE FROM BoxScores; END",
      "CREATE TABLE X ([C] UNIQUE ON CONFLICT REPLACE, [C2] UNIQUE ON CONFLICT IGNORE); INSERT "
      "INTO "
      "X SELECT [C], [C2] FROM [T]; DROP TABLE [T]; ALTER TABLE X RENAME TO [T]",
      "CREATE UNIQUE INDEX A ON [T] ([C])",
      "CREATE INDEX A ON [T] (abs([C]))",
      "PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = substr(sql, 1, 40) WHERE name = "
      "'T'",
      "PRAGMA writable_schema = ON; UPDATE sqlite_master SET rootpage = 1 WHERE name = 'T'",
      "PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = replace(sql, 'TEXT', 'TEXT "
      "COLLATE X')",
  };
  const TableColumns table = OneOf(AllTables());
  std::string statements = Replaced(OneOf(kShapes), "[T]", "[" + table.table + "]");
  for (const char* column : {"[C]", "[C2]"}) {
    statements = Replaced(statements, column, "[" + OneOf(table.columns) + "]");
  }
  TryToExecute(file, statements);
}

void HostileDatabase::SpoilValues() {
  static const char* const kValues[] = {"NULL",
                                        "''",
                                        "9223372036854775807",
                                        "-9223372036854775808",
                                        "9e999",
                                        "-9e999",
                                        "1e-300",
                                        "x'00'",
                                        "x'fffe00'",
                                        "CAST(x'c3' AS TEXT)",
                                        "CAST(x'410042' AS TEXT)",
                                        "'½'",
                                        "'1.5e3'",
                                        "zeroblob(100000)",
                                        "CAST(zeroblob(70000) AS TEXT)",
                                        "'a_VIS'",
                                        "'b_HOME'",
                                        "'999999999999'",
                                        "'000000000000'",
                                        "'111826100113'",
                                        "'<b>&\"'",
                                        "'../../up'",
                                        "printf('%.*c', 100000, 'x')",
                                        "char(10, 13, 9, 8238)",
                                        "'   '",
                                        "'Ants'",
                                        "0.1 + 0.2",
                                        "-1"};
  for (unsigned left = 1 + Below(8); left > 0; --left) {
    const TableColumns table = OneOf(AllTables());
    const std::string where = " WHERE rowid % " + std::to_string(1 + Below(3)) + " = 0";
    TryToExecute(file, "PRAGMA ignore_check_constraints = ON; UPDATE OR IGNORE [" + table.table +
                           "] SET [" + OneOf(table.columns) + "] = " + OneOf(kValues) + where);
    if (Below(6) == 0) {
      TryToExecute(file, "INSERT INTO [" + table.table + "] SELECT * FROM [" + table.table + "]");
    }
  }
}

void HostileDatabase::SpoilBytes(const fs::path& spoiled) {
  std::string bytes = ReadAll(spoiled);
  if (bytes.size() < 2) return;
  constexpr unsigned kPage = 4096;
  const auto any = [&] { return Below(static_cast<unsigned>(bytes.size())); };
  const auto page = [&] { return any() / kPage * kPage; };
  switch (Below(6)) {
    case 0:
      for (unsigned left = 1 + Below(60); left > 0; --left)
        bytes[any()] = static_cast<char>(Below(256));
      break;
    case 1:  // the heads of pages, where all else hangs on
      for (unsigned left = 1 + Below(6); left > 0; --left) {
        const unsigned at = page() + Below(16);
        if (at < bytes.size()) bytes[at] = static_cast<char>(Below(256));
      }
      break;
    case 2: {
      const std::string other = bytes.substr(page(), kPage);
      bytes.replace(page(), other.size(), other);
      break;
    }
    case 3:
      bytes.resize(any());
      break;
    case 4:
      bytes[Below(100)] = static_cast<char>(Below(256));
      break;
    default:
      bytes += std::string(Below(3 * kPage), static_cast<char>(Below(256)));
  }
  std::ofstream(spoiled, std::ios::binary) << bytes;
}

void HostileDatabase::SpoilKind() {
  static const char* const kKinds[] = {
      "PRAGMA journal_mode = WAL", "PRAGMA page_size = 512; VACUUM",
      "PRAGMA page_size = 65536; VACUUM", "PRAGMA auto_vacuum = FULL; VACUUM",
      "PRAGMA user_version = -1; PRAGMA application_id = 7"};
  if (Below(4) > 0) return TryToExecute(file, OneOf(kKinds));
  // The same tables in UTF-16.
  const fs::path other = folder / "other";
  TryToExecute(other, "PRAGMA encoding = 'UTF-16le'; " + ReadAll(DTB_SCHEMA));
  for (const TableColumns& table : SavedTables()) {
    TryToExecute(other, "ATTACH '" + file.string() + "' AS o; INSERT INTO main." + table.table +
                            " SELECT * FROM o." + table.table);
  }
  fs::rename(other, file);
}

// What a program leaves that died in the middle of a change, torn or of another file.
void HostileDatabase::SpoilWhatStandsBeside() {
  const bool log = Below(2) == 0;
  const char* const end = log ? "-wal" : "-journal";
  const pid_t child = fork();
  if (child == 0) {
    try {
      SQLite::Database dying(file.string(), SQLite::OPEN_READWRITE);
      dying.exec(log ? "PRAGMA journal_mode = WAL"
                     : "PRAGMA cache_size = 1; PRAGMA cache_spill = 1");
      dying.exec(
          "BEGIN; DELETE FROM Batting; CREATE TABLE Half (a); WITH RECURSIVE n(i) AS (SELECT 1 "
          "UNION "
          "ALL SELECT i + 1 FROM n LIMIT 200) INSERT INTO Half SELECT zeroblob(3000) FROM n");
      if (log) dying.exec("COMMIT");
    } catch (const SQLite::Exception&) {
      _exit(1);
    }
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  const fs::path beside = file.string() + end;
  switch (Below(5)) {
    case 0:
      if (fs::exists(beside)) SpoilBytes(beside);
      break;
    case 1:
      std::ofstream(beside, std::ios::binary)
          << std::string(Below(9000), static_cast<char>(Below(256)));
      break;
    case 2:
      std::ofstream(file.string() + "-shm", std::ios::binary) << std::string(Below(40000), 'x');
      break;
    case 3:
      fs::remove(beside);
      fs::create_directory(beside);
      break;
    default:
      break;  // it is taken back
  }
}

// Read in another place, as the program would read it, so that looking changes nothing.
std::optional<Rows> HostileDatabase::Look() const {
  const fs::path place = folder / "look";
  fs::remove_all(place);
  fs::create_directory(place);
  for (const char* end : {"", "-journal", "-wal"}) {
    const fs::path one = file.string() + end;
    if (fs::is_regular_file(one)) fs::copy_file(one, place / one.filename());
  }
  Rows rows;
  try {
    SQLite::Database plain((place / kDatabaseFile).string(), SQLite::OPEN_READWRITE);
    if (plain.execAndGet("PRAGMA integrity_check(1)").getString() != "ok") return std::nullopt;
    for (const TableColumns& table : AllTables()) {
      if (!plain.tableExists(table.table)) continue;
      SQLite::Statement all(plain, "SELECT * FROM [" + table.table + "]");
      while (all.executeStep()) {
        std::string row;
        for (int i = 0; i < all.getColumnCount(); ++i) row += all.getColumn(i).getString() + "|";
        rows[table.table].insert(row);
      }
    }
  } catch (const SQLite::Exception&) {
    return std::nullopt;
  }
  fs::remove_all(place);
  return rows;
}

Files HostileDatabase::Copies() const {
  Files files;
  std::error_code none;
  for (const auto& entry : fs::directory_iterator(folder / kCopiesFolder, none)) {
    if (entry.path().extension() == ".mdb") files[entry.path()] = ReadAll(entry.path());
  }
  return files;
}

void HostileDatabase::SaveAGame() {
  desk.time.second = static_cast<int>(Below(60));
  Table table(ports, "Ants", "Bees");
  table.Put(Side::Visitors, 1, {{stat_column::kBatter, "Joe"}, {stat_column::kPlayed, "1"}});
  table.PlayThree();
  SaveGame(table.board);
  EXPECT_NE(table.sheet.Command2_enabled.value(), Told("Data successfully recorded"));
}

void HostileDatabase::UseCopies() {
  CopiesState shown;
  CopiesDesk copiesDesk{shown, ports};
  ListCopies(copiesDesk);
  SelectCopy(copiesDesk, static_cast<int>(Below(3)));
  BringBackSelected(copiesDesk);
}

void HostileDatabase::MakePages() {
  fs::create_directory(folder / "Game Rpts");
  WriteSeasonPages(browser.platform, kBrowserTitle);
  SqliteSeasons shelf(folder, database, copies, [](const fs::path&) {});
  Platform platform = WithShelf(ports, shelf);
  book::WriteBook(platform, {});
  if (Below(2) == 0) ExportTables(browser);
  if (Below(2) == 0) static_cast<void>(ExportGrids(browser));
  fs::remove_all(folder / "Game Rpts");
}

void HostileDatabase::UseForReading() {
  static const char* const kTexts[] = {"",  "Joe",          "Ants", "%", "_",
                                       "'", "111826100113", "\xC3", "½"};
  OpenBrowser(browser);
  for (const QueryButton& button : QueryButtons()) {
    if (button.box != nullptr) (state.*button.box).Set(OneOf(kTexts));
    RunQuery(browser, button.query);
  }
  RunQuery(browser, Query::Command4);
  FindGameSavedTwice(browser);
  SelectGameID(browser, static_cast<int>(Below(9)), line_score_column::kGameID);
  try {
    static_cast<void>(ReadRecordsOfDay(database, "2026-11-18"));
  } catch (const ProgramError&) {  // as a query may
  }
  if (const auto& season = state.season.value()) {
    for (const SeasonLead lead : kSeasonLeads) static_cast<void>(Leaders(*season, lead, true));
    static_cast<void>(StandingsText(*season, Standings(*season)));
  }
}

// A gesture tells that it has done its work, or all rows are as they were.
void HostileDatabase::Use() {
  static const char* const kAnswers[] = {"",     "Restore", "Make an empty", "Leave",
                                         "Take", "Delete",  "Keep"};
  desk.yes = Below(6) > 0;
  desk.answer = OneOf(kAnswers);
  desk.told.clear();
  const auto before = Look();
  const Files copiesBefore = Copies();
  const unsigned use = Below(8);
  const char* done = "The database is now the copy";
  try {
    switch (use) {
      case 0:
        SaveAGame();
        done = "Data successfully recorded";
        break;
      case 1:
        TakeOutChosen(browser, ChosenGame(state, static_cast<int>(1 + Below(6))));
        done = "The game is deleted.";
        break;
      case 2:
        PurgeAll(browser.platform, kBrowserTitle);
        done = "Delete of all statistics is complete.";
        break;
      case 3:
        DeleteWinLoss(browser.platform, kBrowserTitle);
        done = "Win/Loss Matchup data has been deleted.";
        break;
      case 4:
        UseCopies();
        break;
      case 5:
        MakePages();
        break;
      default:
        UseForReading();
    }
  } catch (const std::exception& fault) {
    ADD_FAILURE() << fault.what();
  }
  const auto after = Look();
  const std::string told = " in " + std::to_string(use) + " " + testing::PrintToString(desk.told);
  const bool renewed =
      Told("The database is now the copy") || Told("An empty database is in place.");
  if (before && !Told(done) && !renewed) {
    EXPECT_TRUE(after == before) << "rows are lost or new" << told;
  }
  if (before && after && use == 0 && Told(done) && !renewed) {
    EXPECT_EQ(after->at("BoxScores").size(),
              (before->contains("BoxScores") ? before->at("BoxScores").size() : 0) + 2)
        << told;
  }
  if (after && use == 2 && Told(done)) {
    // A table with the name of one of the plays by chance is kept.
    for (const TableColumns& table : SavedTables()) {
      EXPECT_FALSE(after->contains(table.table)) << table.table << told;
    }
  }
  for (const auto& [copy, bytes] : copiesBefore) {
    EXPECT_TRUE(fs::exists(copy) && ReadAll(copy) == bytes) << copy << told;
  }
}

TEST_F(HostileDatabase, IsToldOfAndLosesNothing) {
  const unsigned seed = FromOutside("DTB_SEED", 1);
  const unsigned databases = FromOutside("DTB_DATABASES", 12);
  for (unsigned i = 0; i < databases && !HasFailure(); ++i) Try(seed + i);
}

}  // namespace
}  // namespace dtb
