// What a click costs through the windows, until everything is painted again and its box is closed.
// Goal: one frame of the screen, 16 milliseconds. The bare Qt beside it paints the whole park
// once: the work of one full frame.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include "bench/played_desk.h"
#include "platform/qt/qt_text.h"

namespace dtb {

void CloseBoxes() {
  QTimer::singleShot(0, qApp, [] {
    if (MessageBox::Open() == nullptr) return;
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(MessageBox::Open(), &enter);
    CloseBoxes();
  });
}

void ClickOn(QWidget* control) {
  const QPointF place = control->rect().center();
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    const bool press = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, place, control->mapToGlobal(place), Qt::LeftButton,
                      press ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    if (!press) CloseBoxes();
    QCoreApplication::sendEvent(control, &event);
  }
  QCoreApplication::processEvents();
}

namespace {

void ClickThroughTheWindows(benchmark::State& state, const char* label) {
  PlayedDesk desk;
  auto* control = desk.desk.form1().findChild<QWidget*>(QLatin1String(label));
  for (auto _ : state) ClickOn(control);
}
BENCHMARK_CAPTURE(ClickThroughTheWindows, single, "lbl_Single")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickThroughTheWindows, walk, "lbl_BB")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickThroughTheWindows, run, "lbl_RBI")->Unit(benchmark::kMillisecond);

// The same where the board keeps the bases, with every runner and his piece on the move, and a
// notice instead of the box: one repaint. Goal: 4 milliseconds.
void ClickOnBases(benchmark::State& state, const char* label) {
  PlayedDesk desk;
  Board& board = desk.desk.board();
  board.state.cb_KeepBases.Set(true);
  desk.desk.aids().cb_QuickBoxes.Set(true);
  auto* control = desk.desk.form1().findChild<QWidget*>(QLatin1String(label));
  for (auto _ : state) ClickOn(control);
}
BENCHMARK_CAPTURE(ClickOnBases, single, "lbl_Single")
    ->Iterations(120)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickOnBases, walk, "lbl_BB")->Iterations(120)->Unit(benchmark::kMillisecond);

void BareFrame(benchmark::State& state) {
  ParkView park(nullptr);
  park.LoadPark(ToQt(std::string(DTB_PROGRAM_FOLDER) + "/Ballparks/DEFAULT1679X974.jpg"));
  park.resize(kFullHd);
  park.show();
  QCoreApplication::processEvents();
  for (auto _ : state) park.repaint();
}
BENCHMARK(BareFrame)->Unit(benchmark::kMillisecond);

// One step of dragging the board's edge: everything goes to its new place, the park is scaled and
// all is painted. Goal: 60 steps a second. Bare: one smooth scale of the park by Qt.
void DragTheEdge(benchmark::State& state) {
  PlayedDesk desk;
  int step = 0;
  for (auto _ : state) {
    step = (step + 1) % 100;
    desk.desk.form1().resize(kFullHd - QSize(step, 0));
    QCoreApplication::processEvents();
  }
}
BENCHMARK(DragTheEdge)->Unit(benchmark::kMillisecond);

void BareSmoothScale(benchmark::State& state) {
  const QImage park(QStringLiteral(DTB_PROGRAM_FOLDER "/Ballparks/DEFAULT1679X974.jpg"));
  const QImage source = park.convertToFormat(QImage::Format_RGB32);
  int step = 0;
  for (auto _ : state) {
    step = (step + 1) % 100;
    benchmark::DoNotOptimize(
        source.scaled(kFullHd - QSize(step, 0), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
}
BENCHMARK(BareSmoothScale)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace dtb
