// What a click costs in the logic alone. Goal: 20 microseconds an outcome.
#include <benchmark/benchmark.h>

#include "bench/quiet_table.h"
#include "game/outcomes.h"
#include "sheet/proof.h"

namespace dtb {
namespace {

// The plays of a long game; a table on which more are kept is none that a person sees.
constexpr std::size_t kMostPlays = 200;

void OutcomeInCore(benchmark::State& state, Outcome outcome) {
  QuietTable table;
  for (auto _ : state) {
    RecordOutcome(table.board, outcome);
    if (table.state.plays.size() > kMostPlays) table.state.plays = {};
  }
}
BENCHMARK_CAPTURE(OutcomeInCore, single, Outcome::Single);
BENCHMARK_CAPTURE(OutcomeInCore, walk, Outcome::Walk);
BENCHMARK_CAPTURE(OutcomeInCore, run, Outcome::RunBattedIn);

// The same where the board keeps the bases, with a run on every play of a long half-inning: goal 5
// microseconds.
void OutcomeOnBases(benchmark::State& state, Outcome outcome) {
  constexpr std::size_t kLongHalf = 12;
  QuietTable table;
  table.state.cb_KeepBases.Set(true);
  for (auto _ : state) {
    RecordOutcome(table.board, outcome);
    if (table.state.plays.size() > kLongHalf) table.state.plays = {};
  }
}
BENCHMARK_CAPTURE(OutcomeOnBases, single, Outcome::Single);
BENCHMARK_CAPTURE(OutcomeOnBases, walk, Outcome::Walk);
BENCHMARK_CAPTURE(OutcomeOnBases, triple, Outcome::Triple);

// A groundout with the end of every third half, on a new table before the frame is full.
void OutsInCore(benchmark::State& state) {
  QuietTable table;
  for (auto _ : state) {
    RecordOutcome(table.board, Outcome::Groundout);
    if (table.state.tb_OutsCount.value() == "117") table.state.tb_OutsCount.Set("0");
    if (table.state.plays.size() > kMostPlays) table.state.plays = {};
  }
}
BENCHMARK(OutsInCore);

void LoadTeamOf49(benchmark::State& state) {
  QuietTable table;
  const FullTeamFile file;
  for (auto _ : state) {
    table.state.List1.Clear();
    OpenTeam(table.board, Side::Visitors, file.path());
  }
}
BENCHMARK(LoadTeamOf49)->Unit(benchmark::kMicrosecond);

// The proof of a full sheet, at each opening and each edit. Goal: 1 millisecond.
void ProofOfFullSheet(benchmark::State& state) {
  QuietTable table;
  for (const Side side : {Side::Visitors, Side::Home}) {
    StatGrid& grid = SideOf(table.board, side).grid;
    for (int row = 1; row < grid.rows(); ++row) {
      grid.SetText(row, stat_column::kPitcher, "Pitcher " + std::to_string(row));
      for (int column = 2; column < stat_column::kPlayed; ++column) {
        if (column != stat_column::kPitcher) grid.SetText(row, column, "3");
      }
    }
  }
  for (auto _ : state) benchmark::DoNotOptimize(Prove(table.board, ProofMoment::Save));
}
BENCHMARK(ProofOfFullSheet)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace dtb
