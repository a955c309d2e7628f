// The book of all seasons. Goal: twenty seasons of 2,000 games within 60 seconds.
#include <SQLiteCpp/SQLiteCpp.h>

#include <QTemporaryDir>

#include "base/paths.h"
#include "bench/pairs.h"
#include "bench/season.h"
#include "book/book_pages.h"
#include "platform/qt/qt_text.h"
#include "platform/quiet_desktop.h"
#include "platform/sqlite/sqlite_copies.h"
#include "platform/sqlite/sqlite_database.h"
#include "platform/sqlite/sqlite_seasons.h"

namespace dtb {
namespace {

constexpr double kBookGoal = 60000;
constexpr int kSeasons = 20;
constexpr int kGames = 2000;

// The same games in another year.
void MakeSeason(const std::filesystem::path& file, int number) {
  std::filesystem::copy_file(SeasonOf(kGames), file);
  SQLite::Database database(file.string(), SQLite::OPEN_READWRITE);
  const std::string year = std::to_string(20 + number);
  SQLite::Transaction change(database);
  for (const char* table :
       {"Batting", "Pitching", "BoxScores", "Games", "Plays", "Runs", "Decisions"}) {
    database.exec("UPDATE " + std::string(table) + " SET GameID = substr(GameID, 1, 4) || '" +
                  year + "' || substr(GameID, 7)");
  }
  database.exec("UPDATE Games SET GameDate = '20" + year + "' || substr(GameDate, 5)");
  change.commit();
}

void Book(benchmark::State& state) {
  const QTemporaryDir folder;
  const std::filesystem::path place = PathOf(FromQt(folder.path()));
  std::filesystem::create_directories(place / "Seasons");
  for (int i = 0; i < kSeasons; ++i) {
    MakeSeason(place / "Seasons" / (std::to_string(2020 + i) + ".mdb"), i);
  }
  SqliteDatabase database(place / kDatabaseFile);
  SqliteCopies copies(place / kDatabaseFile);
  SqliteSeasons seasons(place, database, copies, [](const std::filesystem::path&) {});
  QuietDesktop quiet;
  Platform platform{quiet,   quiet, quiet, quiet, quiet, quiet, database, copies, quiet,
                    seasons, quiet, quiet, quiet, quiet, quiet, quiet,    quiet,  place};
  std::vector<double> turns;
  for (auto _ : state) {
    turns.push_back(1000 * SecondsOf([&] { book::WriteBook(platform, {}); }));
  }
  NoteTime("book: twenty seasons", kGames, kBookGoal, turns);
}

[[maybe_unused]] const bool kAdded = [] {
  benchmark::RegisterBenchmark("Book/20 seasons of 2000 games", Book)
      ->Unit(benchmark::kMillisecond)
      ->Iterations(1);
  return true;
}();

}  // namespace
}  // namespace dtb
