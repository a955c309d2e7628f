// A copy of the statistics database, written beside its place, compared and moved there, beside
// SQLite's bare backup into a new file. Goal: 1.2 times.
#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Database.h>

#include "bench/pairs.h"
#include "bench/season.h"
#include "platform/sqlite/sqlite_copies.h"

namespace dtb {
namespace {

constexpr double kCopyGoal = 1.2;

void BackUpBare(const std::filesystem::path& from, const std::filesystem::path& into) {
  SQLite::Database source(from.string());
  SQLite::Database made(into.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  SQLite::Backup(made, source).executeStep(-1);
}

void Copy(benchmark::State& state, int games) {
  const std::filesystem::path& file = SeasonOf(games);
  const std::filesystem::path bare = file.string() + ".backup";
  SqliteCopies copies(file);
  // Each turn makes a new file.
  MeasurePair(state, "copy", games, kCopyGoal,
              {[&] {
                 copies.RemoveCopy("copy.mdb");
                 return SecondsOf([&] { copies.MakeCopy("copy.mdb"); });
               },
               [&] {
                 std::filesystem::remove(bare);
                 return SecondsOf([&] { BackUpBare(file, bare); });
               }});
}

[[maybe_unused]] const bool registered = [] {
  for (const int games : {100, 1000, 10000}) {
    benchmark::RegisterBenchmark(("Database/copy/" + std::to_string(games)).c_str(),
                                 [games](benchmark::State& state) { Copy(state, games); })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(games == 10000 ? 15 : 41)
        ->UseManualTime();
  }
  return true;
}();

}  // namespace
}  // namespace dtb
