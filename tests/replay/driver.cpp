#include "replay/driver.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QThread>
#include <QTimer>

#include "replay/gestures.h"

namespace dtb::replay {
namespace {

// More turns of the event loop than any gesture takes.
constexpr int kMostWaits = 20000;

}  // namespace

int Driver::Run() {
  Schedule();
  return QApplication::exec();
}

void Driver::Finish(int status) {
  finished_ = true;
  QApplication::exit(status);
}

void Driver::Schedule() {
  if (pause_ > 0) {
    QTimer::singleShot(pause_, this, [this] { Step(); });
  } else {
    QMetaObject::invokeMethod(
        this, [this] { Step(); }, Qt::QueuedConnection);
  }
}

void Driver::Step() {
  if (finished_) return;
  Schedule();
  const int loops = thread()->loopLevel();
  MessageBox* box = MessageBox::Open();
  const bool windowWaits =
      QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr;
  // In the loop of the gesture itself its events are still on their way; in the loop of a box or
  // window that is closed already, the gesture is about to go on.
  const bool closed = box != nullptr ? box == answered_ : loops_ > 0 && !windowWaits;
  if (loops <= loops_ || closed) {
    if (++waits_ > kMostWaits) Refuse("the gesture does not end");
    return;
  }
  waits_ = 0;
  const QScopedValueRollback hold(loops_, loops);
  // Without a desktop nobody else gives the focus back after a window is closed.
  QWidget* front = FrontWindow();
  if (front != nullptr && !front->isActiveWindow()) {
    front->activateWindow();
    QApplication::processEvents();
  }
  try {
    if (box == nullptr) {
      MakeGesture();
    } else if (Answer(*box)) {
      answered_ = box;
    }
  } catch (const Refused& refused) {
    Refuse(QString::fromUtf8(refused.what()));
  }
}

}  // namespace dtb::replay
