#include "replay/driver.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QThread>
#include <QTimer>

#include "replay/gestures.h"
#include "windows/browser/browser_window.h"

namespace dtb::replay {
namespace {

// The browser's tables are still on their way to a person who waits for them.
bool ReadsTables() {
  const auto* browser = qobject_cast<BrowserWindow*>(QApplication::activeModalWidget());
  return browser != nullptr && !browser->Settled() && MessageBox::Open() == nullptr;
}

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
  QTimer::singleShot(pause_, this, [this] { Step(); });
}

void Driver::Step() {
  constexpr int kMostWaits = 20000;  // turns of the event loop; no gesture takes as many
  if (finished_) return;
  Schedule();
  if (ReadsTables()) return;
  const int loops = thread()->loopLevel();
  MessageBox* box = MessageBox::Open();
  const bool windowWaits = QApplication::activeModalWidget() || QApplication::activePopupWidget();
  // In the loop of the gesture itself its events are still on their way; in the loop of a box or
  // window that is closed already, the gesture is about to go on.
  const bool closed = box ? box == answered_ : loops_ > 0 && !windowWaits;
  if (loops <= loops_ || closed) {
    if (++waits_ > kMostWaits) Refuse("the gesture does not end");
    return;
  }
  waits_ = 0;
  const QScopedValueRollback hold(loops_, loops);
  // Without a desktop nobody else gives the focus back after a window is closed.
  QWidget* front = FrontWindow();
  if (front && !front->isActiveWindow()) {
    front->activateWindow();
    QApplication::processEvents();
  }
  try {
    if (!box) {
      MakeGesture();
    } else if (Answer(*box)) {
      answered_ = box;
    }
  } catch (const Refused& refused) {
    Refuse(QString::fromUtf8(refused.what()));
  }
}

}  // namespace dtb::replay
