#include "platform/qt/qt_keyboard.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <utility>

namespace dtb {

QtKeyboard::QtKeyboard() { QCoreApplication::instance()->installEventFilter(this); }

int QtKeyboard::TakeControlF12() { return std::exchange(together_, 0); }

void QtKeyboard::Put(bool control, bool f12) {
  if (control && f12 && !(control_ && f12_)) ++together_;
  control_ = control;
  f12_ = f12;
}

bool QtKeyboard::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
      const auto* key = static_cast<QKeyEvent*>(event);
      if (key->isAutoRepeat()) break;
      const bool down = event->type() == QEvent::KeyPress;
      if (key->key() == Qt::Key_Control) Put(down, f12_);
      if (key->key() == Qt::Key_F12) {
        Put(control_ || key->modifiers().testFlag(Qt::ControlModifier), down);
      }
      break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
      Put(static_cast<QInputEvent*>(event)->modifiers().testFlag(Qt::ControlModifier), f12_);
      break;
    case QEvent::ApplicationDeactivate:
      Put(false, false);
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

int DigitByPlace(const QKeyEvent& event) {
#ifdef Q_OS_WIN
  constexpr quint32 kPlaceOfOne = 2;  // scan codes of a PC keyboard
#else
  constexpr quint32 kPlaceOfOne = 10;  // X11 keycodes: the same, moved by 8
#endif
  constexpr quint32 kDigits = 9;
  const quint32 place = event.nativeScanCode() - kPlaceOfOne;
  if (place < kDigits) return static_cast<int>(place) + 1;
  const int digit = event.key() - Qt::Key_0;
  return digit >= 1 && digit <= static_cast<int>(kDigits) ? digit : 0;
}

int KeyByPlace(const QKeyEvent& event) {
  const int digit = DigitByPlace(event);
  const bool shifted = event.modifiers().testFlag(Qt::ShiftModifier);
  return digit == 0 || shifted ? event.key() : Qt::Key_0 + digit;
}

}  // namespace dtb
