// The tab of the season, its pictures, and its pages. Goals: figures in 1.2 times the bare queries,
// a picture in 16 milliseconds, 10,000 games as pages within 20 seconds.
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <memory>

#include "base/paths.h"
#include "bench/pairs.h"
#include "bench/season.h"
#include "platform/qt/qt_text.h"
#include "platform/quiet_desktop.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/sqlite_database.h"
#include "season/season_pages.h"
#include "sqlite3.h"
#include "windows/season/season_course_chart.h"
#include "windows/season/season_games_chart.h"
#include "windows/season/season_score_charts.h"

namespace dtb {
namespace {

constexpr double kFiguresGoal = 1.2;
constexpr double kPictureGoal = 16;
constexpr double kPagesGoal = 20000;

struct NotedDatabase : SqliteDatabase {
  using SqliteDatabase::SqliteDatabase;
  void Run(const Statement& query, RowSink& rows) override {
    statements.push_back(query.text);
    SqliteDatabase::Run(query, rows);
  }
  std::vector<std::string> statements;
};

void RunBare(const std::filesystem::path& file, const std::vector<std::string>& statements) {
  SQLite::Database database = sqlite::Open(file, SqliteDatabase::kLongestWait);
  for (const std::string& text : statements) {
    sqlite3_stmt* stepped = nullptr;
    sqlite3_prepare_v2(database.getHandle(), text.c_str(), -1, &stepped, nullptr);
    const int fields = sqlite3_column_count(stepped);
    while (sqlite3_step(stepped) == SQLITE_ROW) {
      for (int field = 0; field < fields; ++field) {
        benchmark::DoNotOptimize(sqlite3_column_text(stepped, field));
      }
    }
    sqlite3_finalize(stepped);
  }
}

// Of few games the opening of the file takes the most, so the time itself counts there.
void FiguresOfFew(benchmark::State& state, int games) {
  SqliteDatabase database(SeasonOf(games));
  std::vector<double> turns;
  for (auto _ : state) {
    turns.push_back(1000 *
                    SecondsOf([&] { benchmark::DoNotOptimize(ReadSeasonFigures(database)); }));
  }
  NoteTime("season: figures", games, kPictureGoal, turns);
}

void Figures(benchmark::State& state, int games) {
  const auto& file = SeasonOf(games);
  NotedDatabase noted(file);
  benchmark::DoNotOptimize(ReadSeasonFigures(noted));
  SqliteDatabase database(file);
  MeasurePair(
      state, "season: figures", games, kFiguresGoal,
      {[&] { return SecondsOf([&] { benchmark::DoNotOptimize(ReadSeasonFigures(database)); }); },
       [&] { return SecondsOf([&] { RunBare(file, noted.statements); }); }});
}

void Picture(benchmark::State& state, const char* name, int games, SeasonChart& chart) {
  chart.resize(1000, 600);
  QImage image(chart.size(), QImage::Format_ARGB32_Premultiplied);
  std::vector<double> turns;
  for (auto _ : state) {
    chart.SetType(14);  // painted anew
    turns.push_back(1000 * SecondsOf([&] { chart.render(&image); }));
  }
  NoteTime(name, games, kPictureGoal, turns);
}

void Pictures(benchmark::State& state, int games, int which) {
  SqliteDatabase database(SeasonOf(games));
  const auto season = std::make_shared<const SeasonFigures>(ReadSeasonFigures(database));
  if (which == 0) {
    SeasonCourseChart chart;
    chart.SetSeason(season, StandingsByGroup(*season, {}), kAllGroups, -1);
    return Picture(state, "season: standings painted", games, chart);
  }
  if (which == 1) {
    SeasonGamesChart chart;
    const SeasonSubject subject{0, {}, true, SeasonRole::Batting};
    chart.SetOutings(season, subject, ReadOutings(database, *season, subject));
    return Picture(state, "season: a team painted", games, chart);
  }
  SeasonFinals chart;
  chart.SetScores(CountScores(*season));
  Picture(state, "season: scores painted", games, chart);
}

void Pages(benchmark::State& state, int games) {
  const QTemporaryDir folder;
  SqliteDatabase database(SeasonOf(games));
  QuietDesktop quiet;
  Platform platform = PlatformOf(quiet, database, quiet, PathOf(FromQt(folder.path())));
  std::vector<double> turns;
  for (auto _ : state) {
    turns.push_back(1000 * SecondsOf([&] { WriteSeasonPages(platform, {}); }));
  }
  NoteTime("season: pages", games, games == 10000 ? kPagesGoal : 0, turns);
}

[[maybe_unused]] const bool registered = [] {
  for (const int games : {100, 1000, 10000}) {
    const auto add = [games](const char* name, auto function, int turns) {
      return benchmark::RegisterBenchmark(
                 ("Season/" + std::string(name) + "/" + std::to_string(games)).c_str(), function)
          ->Unit(benchmark::kMillisecond)
          ->Iterations(turns);
    };
    if (games == 100) {
      add(
          "figures", [](benchmark::State& state) { FiguresOfFew(state, 100); }, 41);
    } else {
      add(
          "figures", [games](benchmark::State& state) { Figures(state, games); }, 7)
          ->UseManualTime();
    }
    for (const int which : {0, 1, 2}) {
      add(("picture " + std::to_string(which)).c_str(),
          [games, which](benchmark::State& state) { Pictures(state, games, which); }, 15);
    }
    add(
        "pages", [games](benchmark::State& state) { Pages(state, games); }, 1);
  }
  return true;
}();

}  // namespace
}  // namespace dtb
