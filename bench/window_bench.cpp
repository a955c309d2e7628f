// What a click costs through the windows, until everything is painted again and its box is closed.
// Goal: one frame of the screen, 16 milliseconds. The bare toolkit beside it paints the whole park
// once: the work of one full frame.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTimer>

#include "bench/quiet_table.h"
#include "game/outcomes.h"
#include "platform/paths.h"
#include "platform/qt/qt_text.h"
#include "windows/desk.h"

namespace dtb {
namespace {

constexpr QSize kFullHd(1860, 1079);  // a board of full height on a screen of 1920 x 1080

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

void ClickThroughTheWindows(benchmark::State& state, const char* label) {
  QTemporaryDir folder;
  Desk::Setup setup;
  setup.programFolder = PathOf(DTB_PROGRAM_FOLDER);
  setup.settingsFile = folder.filePath(QStringLiteral("settings.ini"));
  Desk desk(setup);
  desk.form1().resize(kFullHd);
  desk.Open();
  StartGame(desk.board());
  QCoreApplication::processEvents();
  auto* control = desk.form1().findChild<QWidget*>(QLatin1String(label));
  for (auto _ : state) ClickOn(control);
}
BENCHMARK_CAPTURE(ClickThroughTheWindows, single, "lbl_Single")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickThroughTheWindows, walk, "lbl_BB")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickThroughTheWindows, run, "lbl_RBI")->Unit(benchmark::kMillisecond);

void BareFrame(benchmark::State& state) {
  ParkView park(nullptr);
  park.LoadPark(ToQt(std::string(DTB_PROGRAM_FOLDER) + "/Ballparks/DEFAULT1679X974.jpg"));
  park.resize(kFullHd);
  park.show();
  QCoreApplication::processEvents();
  for (auto _ : state) park.repaint();
}
BENCHMARK(BareFrame)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace dtb
