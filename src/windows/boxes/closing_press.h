// What becomes of the press of the mouse that closes a box.
#pragma once

#include <QWidget>

namespace dtb {

// A press that closes a box and lies on this control is then a click on it: rows of the line-ups,
// game pieces and "AT BAT", where a click too many does no harm.
void TakeClosingPress(QWidget* control);

// Such a control is seen in the window.
[[nodiscard]] bool TakesClosingPresses(const QWidget& window);

// The press has closed a box, at this place of the screen. The person who closes one by a double
// click means one click: the second half of it reaches nothing. Once the button is let go over the
// control that takes the press, and no other box has come up meanwhile, the control gets the click.
void FollowClosingPress(const QPoint& place, Qt::MouseButton button);

}  // namespace dtb
