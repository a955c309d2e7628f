// The browser's window over a large database: what the person waits for. Goals: the first tab
// painted within 100 milliseconds of the click, no pause of more than 50 while the rest is read.
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>

#include "bench/pairs.h"
#include "bench/quiet_table.h"
#include "bench/season.h"
#include "platform/sqlite/sqlite_database.h"
#include "windows/browser/browser_window.h"

namespace dtb {
namespace {

constexpr double kFirstTabGoal = 100;
constexpr double kPauseGoal = 50;

// Watches a browser from its opening on, and closes it when all of its tables are there.
class Watch : public QObject {
 public:
  double firstTab = 0;  // milliseconds, all of them
  double allTabs = 0;
  double longestPause = 0;

  explicit Watch(Platform& platform) {
    QWidget board;
    qApp->installEventFilter(this);
    since_.start();
    turn_ = startTimer(0);
    archive::KeptSeason kept;
    BrowserWindow::Run(platform, kept, &board);
    killTimer(turn_);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || firstTab > 0) return false;
    const auto* grid = qobject_cast<StatGridView*>(watched->parent());
    if (grid != nullptr && grid->model()->rowCount() > 0) {
      painted_ = true;  // once this event is through
    }
    return false;
  }
  void timerEvent(QTimerEvent* /*event*/) override {
    const double now = static_cast<double>(since_.nsecsElapsed()) / 1e6;
    if (firstTab > 0) longestPause = std::max(longestPause, now - last_);
    last_ = now;
    if (painted_ && firstTab == 0) firstTab = now;
    auto* form = qobject_cast<BrowserWindow*>(QApplication::activeModalWidget());
    if (form == nullptr || !form->Settled() || firstTab == 0) return;
    if (allTabs == 0) allTabs = now;
    form->close();
  }

 private:
  QElapsedTimer since_;
  int turn_ = 0;
  double last_ = 0;
  bool painted_ = false;
};

void OpenWindow(benchmark::State& state, int games) {
  SqliteDatabase database(SeasonOf(games));
  QuietDesktop quiet;
  Platform platform = PlatformOf(quiet, database, quiet);
  std::vector<double> firstTabs;
  std::vector<double> allTabs;
  std::vector<double> pauses;
  for (auto _ : state) {
    const Watch watch(platform);
    firstTabs.push_back(watch.firstTab);
    allTabs.push_back(watch.allTabs);
    pauses.push_back(watch.longestPause);
  }
  NoteTime("browser: first tab painted", games, kFirstTabGoal, firstTabs);
  NoteTime("browser: all tabs filled", games, 0, allTabs);
  NoteTime("browser: longest pause meanwhile", games, kPauseGoal, pauses);
}

[[maybe_unused]] const bool registered = [] {
  for (const int games : {1000, 10000}) {
    benchmark::RegisterBenchmark(("Browser/window/" + std::to_string(games)).c_str(),
                                 [games](benchmark::State& state) { OpenWindow(state, games); })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(7);
  }
  return true;
}();

}  // namespace
}  // namespace dtb
