// The state of the keys that gestures of the mouse go with.
#pragma once

#include <QKeyEvent>
#include <QObject>

#include "platform/platform.h"

namespace dtb {

// Watches all input of the application. A Ctrl key that went down while another program had the
// focus is noticed at the first gesture with its modifier.
class QtKeyboard : public QObject, public Keyboard {
  Q_OBJECT
 public:
  QtKeyboard();
  bool ControlHeld() override { return control_; }
  int TakeControlF12() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Put(bool control, bool f12);

  bool control_ = false;
  bool f12_ = false;
  int together_ = 0;  // times since the last question
};

// The digit of a press, 1 to 9, with whatever is held besides; of the number row by its place. 0:
// it is no digit.
[[nodiscard]] int DigitByPlace(const QKeyEvent& event);

// The key of a press. Where the digits of the number row need Shift the row counts by its place, so
// that it gives Qt::Key_1 to Qt::Key_9 without.
[[nodiscard]] int KeyByPlace(const QKeyEvent& event);

}  // namespace dtb
