// The state of the keys that gestures of the mouse go with.
#pragma once

#include <QObject>
#include <array>

#include "platform/platform.h"

namespace dtb {

// Watches all input of the application. A key that went down while another program had the focus is
// noticed at the first gesture that bears its modifier.
class QtKeyboard : public QObject, public Keyboard {
  Q_OBJECT
 public:
  QtKeyboard();
  KeyState Query(Key key) override;
  KeyState Peek(Key key) override { return StateOf(key); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Put(Key key, bool down);
  [[nodiscard]] KeyState& StateOf(Key key) { return states_.at(static_cast<std::size_t>(key)); }

  std::array<KeyState, 2> states_;
};

}  // namespace dtb
