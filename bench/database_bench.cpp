// The statistics database beside bare SQLite, which steps the very statements of the program
// and reads each value as a text. Goals: 1.2 times for the browser, 1.5 for sorts, saves and
// memory.
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <span>
#include <utility>

#include "base/time_stamp.h"
#include "bench/pairs.h"
#include "bench/quiet_table.h"
#include "bench/season.h"
#include "browser/box_score.h"
#include "browser/opening.h"
#include "database/save_game.h"
#include "database/saved_games.h"
#include "database/saved_tables.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/sqlite_database.h"

namespace dtb {
namespace {

constexpr double kBrowserGoal = 1.2;
constexpr double kSortGoal = 1.5;
constexpr double kSaveGoal = 1.5;
constexpr double kMemoryGoal = 1.5;

using Row = std::pair<std::string, std::vector<ColumnText>>;  // of a table

// Passes rows on and remembers them.
class NotedSave : public DatabaseSave {
 public:
  NotedSave(std::unique_ptr<DatabaseSave> save, std::vector<Row>& rows)
      : save_(std::move(save)), rows_(rows) {}
  void Run(const Statement& query, RowSink& rows) override { save_->Run(query, rows); }
  void Append(const std::string& table, const std::vector<ColumnText>& row) override {
    rows_.emplace_back(table, row);
    save_->Append(table, row);
  }
  std::string AppendPlays(const std::vector<TableRow>& rows) override {
    for (const TableRow& row : rows) rows_.emplace_back(row.table, row.cells);
    return save_->AppendPlays(rows);
  }
  void Commit() override { save_->Commit(); }

 private:
  std::unique_ptr<DatabaseSave> save_;
  std::vector<Row>& rows_;
};

// Tells what the program asks of the database, while told to.
struct NotedDatabase : SqliteDatabase {
  using SqliteDatabase::SqliteDatabase;
  void Run(const Statement& query, RowSink& sink) override {
    if (noting) statements.push_back(query);
    SqliteDatabase::Run(query, sink);
  }
  std::unique_ptr<DatabaseSave> BeginSave(const std::vector<TableColumns>& tables) override {
    auto save = SqliteDatabase::BeginSave(tables);
    if (!noting) return save;
    return std::make_unique<NotedSave>(std::move(save), rows);
  }
  // What a piece of the program asks.
  void Note(const std::function<void()>& piece) {
    noting = true;
    piece();
    noting = false;
  }

  bool noting = false;
  std::vector<Statement> statements;
  std::vector<Row> rows;
};

struct OpenedBrowser {
  explicit OpenedBrowser(const std::filesystem::path& file) : database(file) {}

  QuietDesktop quiet;
  NotedDatabase database;
  Platform platform = PlatformOf(quiet, database, quiet);
  BrowserState state;
  Browser browser{state, platform};
};

// Steps through the results, on one connection.
void RunBare(const std::filesystem::path& file, std::span<const Statement> statements) {
  SQLite::Database database = sqlite::Open(file, SqliteDatabase::kLongestWait);
  for (const Statement& statement : statements) {
    sqlite3_stmt* stepped = nullptr;
    sqlite3_prepare_v2(database.getHandle(), statement.text.c_str(), -1, &stepped, nullptr);
    for (std::size_t i = 0; i < statement.bound.size(); ++i) {
      sqlite3_bind_text(stepped, static_cast<int>(i) + 1, statement.bound[i].c_str(), -1,
                        SQLITE_STATIC);
    }
    const int fields = sqlite3_column_count(stepped);
    while (sqlite3_step(stepped) == SQLITE_ROW) {
      for (int field = 0; field < fields; ++field) {
        benchmark::DoNotOptimize(sqlite3_column_text(stepped, field));
      }
    }
    sqlite3_finalize(stepped);
  }
}

void MeasureBrowser(benchmark::State& state, const char* name, int games, OpenedBrowser& opened,
                    const std::function<void()>& piece) {
  const auto& file = SeasonOf(games);
  opened.database.Note(piece);
  const std::span<const Statement> statements = opened.database.statements;
  MeasurePair(state, name, games, kBrowserGoal,
              {[&] { return SecondsOf(piece); },
               [&] { return SecondsOf([&] { RunBare(file, statements); }); },
               [&] {
                 return SecondsOf([&] {
                   for (std::size_t i = 0; i < statements.size(); ++i) {
                     RunBare(file, statements.subspan(i, 1));
                   }
                 });
               },
               "open the file for each of " + std::to_string(statements.size()) + " statements"});
}

void Opening(benchmark::State& state, int games) {
  OpenedBrowser opened(SeasonOf(games));
  // Each opening has a form of its own.
  MeasureBrowser(state, "opening", games, opened, [&opened] {
    BrowserState form;
    Browser browser{form, opened.platform};
    OpenBrowser(browser);
  });
}

struct QueryCase {
  const char* name;
  Query query;
  const char* box;
};

constexpr QueryCase kQueries[] = {
    {"batting, all", Query::Command5, ""},
    {"batting of a player", Query::Command5, "josé k"},
    {"batting of a team", Query::Command3, "carver"},
    {"batting of a game", Query::Command9, "0401201030"},
    {"batting totals", Query::Command6, ""},
    {"batting totals of a player", Query::Command7, "josé k"},
    {"batting totals of a team", Query::Command8, "carver"},
    {"pitching, all", Query::Command2, ""},
    {"pitching of a team", Query::Command1, "carver"},
    {"pitching of a game", Query::Command10, "0401201030"},
    {"pitching totals", Query::Command14, ""},
    {"pitching totals of a player", Query::Command13, "josé k"},
    {"pitching totals of a team", Query::Command12, "carver"},
    {"line scores, all", Query::Command4, ""},
    {"line score of a game", Query::Command11, "0401201030"},
    {"standings", Query::Command30, ""},
    {"pairings", Query::Command34, ""},
};

void QueryOf(benchmark::State& state, const QueryCase& query, int games) {
  OpenedBrowser opened(SeasonOf(games));
  const auto box = QueryButtons()[static_cast<std::size_t>(query.query)].box;
  if (box != nullptr) (opened.state.*box).Set(query.box);
  MeasureBrowser(state, query.name, games, opened, [&] { RunQuery(opened.browser, query.query); });
}

void BoxScoreOf(benchmark::State& state, int games) {
  OpenedBrowser opened(SeasonOf(games));
  RunQuery(opened.browser, Query::Command4);
  MeasureBrowser(state, "box score", games, opened, [&opened, games] {
    SelectGameID(opened.browser, games, line_score_column::kGameID);
  });
}

// Beside a stable sort of keys that are ready, each with its row.
template <class Key, class MakeKey>
void SortBy(benchmark::State& state, const char* name, int games, int column, MakeKey makeKey) {
  OpenedBrowser opened(SeasonOf(games));
  RunQuery(opened.browser, Query::Command5);
  const StatGrid& grid = opened.state.MSHFlexGrid2.grid;
  std::vector<std::pair<Key, int>> keys;
  for (int row = 1; row < grid.rows(); ++row) {
    keys.emplace_back(makeKey(grid.Text(row, column)), row);
  }
  MeasurePair(state, name, games, kSortGoal,
              {[&] {
                 StatGrid sorted = grid;
                 return SecondsOf([&] { sorted.SortRows(column, SortOrder::Ascending); });
               },
               [&] {
                 auto sorted = keys;
                 return SecondsOf([&] {
                   std::ranges::stable_sort(
                       sorted, {}, [](const auto& entry) -> const Key& { return entry.first; });
                 });
               }});
}

void Sort(benchmark::State& state, const char* name, int games, int column, bool numbers) {
  if (numbers) {
    SortBy<double>(state, name, games, column,
                   [](std::string_view text) { return NumberOf(text); });
  } else {
    SortBy<std::string>(state, name, games, column,
                        [](std::string_view text) { return std::string(text); });
  }
}

// A game of eleven batters and three pitchers a side, and eight plays in an inning.
void FillSheet(Board& board) {
  for (int half = 0; half < 18; ++half) {
    for (int number = 0; number < 4; ++number) {
      Play play;
      play.half = half;
      play.outcome = number == 0 ? Outcome::Single : Outcome::Groundout;
      play.batter = "Firstname Lastname" + std::to_string(1 + number);
      play.pitcher = "Pitcher 3";
      play.basesKept = true;
      Move& move = play.moves.emplace_back();
      move.name = play.batter;
      move.to = number == 0 ? kFirstBase : kPutOut;
      play.after[0] = "Firstname Lastname1";
      board.state.plays.Append(play);
    }
  }
  for (const Side side : {Side::Visitors, Side::Home}) {
    StatGrid& grid = SideOf(board, side).grid;
    for (int row = 1; row <= 11; ++row) {
      for (const int column : {stat_column::kAtBats, stat_column::kSingles, stat_column::kPlayed}) {
        grid.SetText(row, column, column == stat_column::kAtBats ? "4" : "1");
      }
    }
    for (int row = 1; row <= 3; ++row) {
      grid.SetText(row, stat_column::kPitcher, "Pitcher " + std::to_string(row));
      grid.SetText(row, stat_column::kPitcherHits, "4");
      grid.SetText(row, stat_column::kInningsPitched, "3.00");
    }
    SideOf(board, side).pitcher.Set("Pitcher 3");
  }
}

// The same rows on a connection with the same care for a power cut.
void SaveBare(const std::filesystem::path& file, const std::vector<Row>& rows) {
  SQLite::Database database = sqlite::Open(file, SqliteDatabase::kLongestWait);
  database.exec("BEGIN IMMEDIATE");
  std::vector<std::pair<const TableColumns*, SQLite::Statement>> inserts;
  for (const TableColumns& table : AllTables()) {
    std::string marks = "?";
    for (std::size_t i = 1; i < table.columns.size(); ++i) marks += ",?";
    inserts.emplace_back(&table, SQLite::Statement(database, "INSERT INTO " + table.table +
                                                                 " VALUES (" + marks + ")"));
  }
  for (const auto& [name, cells] : rows) {
    auto& [table, insert] = *std::ranges::find_if(
        inserts, [&name](const auto& entry) { return entry.first->table == name; });
    insert.reset();
    insert.clearBindings();
    for (const auto& [column, text] : cells) {
      const auto place = std::ranges::find(table->columns, column);
      insert.bindNoCopy(static_cast<int>(place - table->columns.begin()) + 1, text);
    }
    insert.exec();
  }
  database.exec("COMMIT");
}

// Each save has a second of its own, as it has at a table.
struct GoingClock : QuietDesktop {
  LocalTime Now() override { return time = NextSecond(time); }
  LocalTime time{2030};
};

// What a save asks before it writes: whether the second is free.
void LookForGameID(const std::filesystem::path& file) {
  const std::vector<std::string> bound{"010130000000"};
  RunBare(file, std::vector<Statement>{{"SELECT 1 FROM BoxScores WHERE GameID = ?1", bound},
                                       {"SELECT 1 FROM Batting WHERE GameID = ?1", bound},
                                       {"SELECT 1 FROM Pitching WHERE GameID = ?1", bound}});
}

void Save(benchmark::State& state, int games) {
  // Saves make a file of their own grow.
  const std::filesystem::path file = SeasonOf(games).string() + ".saves";
  std::filesystem::copy_file(SeasonOf(games), file);
  NotedDatabase database(file);
  QuietTable table;
  GoingClock desk;
  Platform platform = PlatformOf(desk, database, desk);
  Board board{table.state, table.sheet, table.log, platform};
  FillSheet(board);
  const auto save = [&] {
    table.sheet.Command2_enabled.Set(true);
    SaveGame(board);
  };
  database.Note(save);
  MeasurePair(state, "save", games, kSaveGoal,
              {[&] { return SecondsOf(save); },
               [&] { return SecondsOf([&] { SaveBare(file, database.rows); }); },
               [&] {
                 return SecondsOf([&] {
                   LookForGameID(file);
                   SaveBare(file, database.rows);
                 });
               },
               "look for a free GameID, and to open the file for it"});
}

// Beside the bytes of its texts.
void Memory(benchmark::State& state, const char* name, Query query, int games) {
  OpenedBrowser opened(SeasonOf(games));
  RunQuery(opened.browser, query);
  const auto button = QueryButtons()[static_cast<std::size_t>(query)];
  const StatGrid& grid = (opened.state.*button.grid).grid;
  std::size_t texts = 0;
  for (auto _ : state) {
    for (int row = 1; row < grid.rows(); ++row) {
      for (int column = 0; column < grid.columns(); ++column) {
        texts += grid.Text(row, column).size();
      }
    }
  }
  const auto taken = static_cast<double>(grid.BytesTaken());
  state.counters["bytes"] = taken;
  state.counters["text"] = static_cast<double>(texts);
  NoteRatio(name, games, kMemoryGoal, taken, static_cast<double>(texts));
}

template <class Function, class... Arguments>
benchmark::internal::Benchmark* Register(const std::string& name, int games, Function function,
                                         Arguments... arguments) {
  return benchmark::RegisterBenchmark(
             ("Database/" + name + "/" + std::to_string(games)).c_str(),
             [=](benchmark::State& state) { function(state, arguments...); })
      ->Unit(benchmark::kMillisecond);
}

[[maybe_unused]] const bool registered = [] {
  for (const int games : {100, 1000, 10000}) {
    const int turns = games == 10000 ? 7 : games == 1000 ? 15 : 41;
    Register("opening", games, Opening, games)->Iterations(turns)->UseManualTime();
    for (const QueryCase& query : kQueries) {
      Register(query.name, games, QueryOf, query, games)->Iterations(turns)->UseManualTime();
    }
    Register("box score", games, BoxScoreOf, games)->Iterations(turns)->UseManualTime();
    Register("save", games, Save, games)->Iterations(61)->UseManualTime();
    if (games == 100) continue;  // too few rows for these to matter
    for (const auto& [name, column, numbers] : {std::tuple{"sort by batter", 1, false},
                                                {"sort by team", 11, false},
                                                {"sort by at-bats", 10, true},
                                                {"sort by GameID", 12, true}}) {
      Register(name, games, Sort, name, games, column, numbers)->Iterations(turns)->UseManualTime();
    }
    Register("bytes of batting", games, Memory, "bytes of batting", Query::Command5, games)
        ->Iterations(1);
    Register("bytes of pitching", games, Memory, "bytes of pitching", Query::Command2, games)
        ->Iterations(1);
    Register("bytes of line scores", games, Memory, "bytes of line scores", Query::Command4, games)
        ->Iterations(1);
  }
  return true;
}();

}  // namespace
}  // namespace dtb
