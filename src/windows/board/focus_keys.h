// Keys that take the focus round the board: F6 to the next panel, Shift + F1 to F4 to a game piece,
// O to the options, Esc back to the park, where no key presses anything.
#pragma once

#include <QKeyEvent>
#include <QPointer>
#include <QWidget>
#include <functional>

namespace dtb {

class FocusKeys {
 public:
  // The park is the parent of all panels and pieces. `toggleOptions` shows or hides the options.
  FocusKeys(QWidget* park, std::function<void()> toggleOptions)
      : park_(park), toggleOptions_(std::move(toggleOptions)) {}

  // True if the key means something here. Esc means something to others as well.
  bool Press(const QKeyEvent& event);
  // The first control of the options gets the focus, where they are shown.
  void EnterOptions();

 private:
  void NextPanel(int by);

  QWidget* park_;
  std::function<void()> toggleOptions_;
};

}  // namespace dtb
