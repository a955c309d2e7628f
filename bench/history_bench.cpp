// What it costs that nothing is lost: a click with the game kept beside the settings, and the store
// that the way back takes. Goals: 1.1 times the click without it, and 16 MiB for 500 steps.
#include "bench/pairs.h"
#include "bench/played_desk.h"
#include "game/batting_order.h"
#include "game/game_pieces.h"
#include "game/history.h"
#include "game/outcomes.h"

namespace dtb {
namespace {

// A person needs longer for a click than the disk for a game.
double TimeOfClick(PlayedDesk& desk, QWidget* control) {
  if (desk.desk.recovery() != nullptr) desk.desk.recovery()->Wait();
  return SecondsOf([control] { ClickOn(control); });
}

void ClickWithRecovery(benchmark::State& state) {
  constexpr double kGoal = 1.1;
  PlayedDesk kept(true);
  PlayedDesk lost(false);
  const auto control = [](PlayedDesk& desk) {
    return desk.desk.form1().findChild<QWidget*>(QStringLiteral("lbl_Single"));
  };
  MeasurePair(state, "click with recovery", 0, kGoal,
              {[&] { return TimeOfClick(kept, control(kept)); },
               [&] { return TimeOfClick(lost, control(lost)); }});
}
BENCHMARK(ClickWithRecovery)->Iterations(301)->UseManualTime()->Unit(benchmark::kMillisecond);

void StepsOfHistory(benchmark::State& state) {
  constexpr int kSteps = 500;
  constexpr double kMostBytes = 16.0 * (1U << 20U);
  std::size_t bytes = 0;
  for (auto _ : state) {
    QuietTable table;
    History history;
    table.board.history = &history;
    for (int i = 0; history.steps() < kSteps; ++i) {
      RecordOutcome(table.board, Outcome(i * 7 % 15));
      if (i % 40 == 0) ResetGamePieces(table.board);
      // The frame of twenty innings is soon full.
      table.state.tb_OutsCount.Set("3");
    }
    bytes = history.BytesTaken();
  }
  state.counters["bytes"] = static_cast<double>(bytes);
  NoteRatio("500 steps back, of 16 MiB", 0, 1, static_cast<double>(bytes), kMostBytes);
}
BENCHMARK(StepsOfHistory)->Iterations(1)->Unit(benchmark::kMillisecond);

// A game of twenty innings on the bases, with all its plays: goal 4 MiB.
void TwentyInningsOnBases(benchmark::State& state) {
  constexpr double kMostBytes = 4.0 * (1U << 20U);
  std::size_t bytes = 0;
  for (auto _ : state) {
    QuietTable table;
    History history;
    table.board.history = &history;
    table.state.cb_KeepBases.Set(true);
    // Seven come to bat in a half-inning, and two score.
    for (int half = 0; half < 2 * 20; ++half) {
      ChooseBatterDue(table.board);
      for (const Outcome outcome :
           {Outcome::Walk, Outcome::Single, Outcome::Groundout, Outcome::Double, Outcome::Flyout,
            Outcome::Walk, Outcome::Strikeout}) {
        RecordOutcome(table.board, outcome);
      }
    }
    bytes = history.BytesTaken();
  }
  state.counters["bytes"] = static_cast<double>(bytes);
  NoteRatio("20 innings on the bases, of 4 MiB", 0, 1, static_cast<double>(bytes), kMostBytes);
}
BENCHMARK(TwentyInningsOnBases)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace dtb
