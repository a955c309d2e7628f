#include "platform/qt/qt_keyboard.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace dtb {

QtKeyboard::QtKeyboard() { QCoreApplication::instance()->installEventFilter(this); }

KeyState QtKeyboard::Query(Key key) {
  KeyState& state = StateOf(key);
  const KeyState now = state;
  state.pressedSinceLastQuery = false;
  return now;
}

void QtKeyboard::Put(Key key, bool down) {
  KeyState& state = StateOf(key);
  if (down && !state.down) state.pressedSinceLastQuery = true;
  state.down = down;
}

bool QtKeyboard::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
      const auto* key = static_cast<QKeyEvent*>(event);
      if (key->isAutoRepeat()) break;
      const bool down = event->type() == QEvent::KeyPress;
      if (key->key() == Qt::Key_Control) Put(Key::Control, down);
      if (key->key() == Qt::Key_F12) Put(Key::F12, down);
      break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
      Put(Key::Control,
          static_cast<QInputEvent*>(event)->modifiers().testFlag(Qt::ControlModifier));
      break;
    case QEvent::ApplicationDeactivate:
      Put(Key::Control, false);
      Put(Key::F12, false);
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace dtb
