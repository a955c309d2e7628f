// Fixed places in layout units that follow the size of a form.
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "base/control_resizer.h"

namespace dtb {

// Remembers for each control of a form its place inside its parent and its type size, and puts all
// of them in place whenever the form's size changes.
class Scene {
 public:
  Scene(double width, double height) : resizer_(width, height) {}

  // Gives a control its place in its parent, in layout units, and its type size (0: it has none).
  void Put(QWidget* widget, const Place& place, double typeSize = 0, bool bold = false);
  // Moves a control to another place, which it keeps when the form's size changes.
  void MoveTo(QWidget* widget, const Place& place);
  // The control's place in layout units.
  [[nodiscard]] Place PlaceOf(const QWidget* widget) const;

  // The form has a new inner size, in pixels: all controls go to their places.
  void Apply(const QSize& innerSize);

  [[nodiscard]] const ControlResizer& resizer() const { return resizer_; }

 private:
  struct Control {
    QPointer<QWidget> widget;
    Place place;
    double typeSize = 0;
    bool bold = false;
  };

  void Arrange(const Control& control) const;
  // Where a panel's inside begins on the form, in layout units.
  [[nodiscard]] QPointF OriginIn(const QWidget* panel) const;
  [[nodiscard]] std::vector<Control>::iterator Find(const QWidget* widget);

  ControlResizer resizer_;
  std::vector<Control> controls_;
};

// Gives a window the size at which it starts: the launch shrink, or what the screen has room for.
// `above` is the height of what stands over the scene, such as a menu bar, in pixels.
void FitAtLaunch(QWidget* window, const ControlResizer& resizer, int above);

// Ties the height of a window to its width, as far as the screen has room for that and the person
// has not maximised it. Called from the window's resize event; acts after it.
void HoldRatio(QWidget* window, const ControlResizer& resizer, int above);

// The board's type, as a share of its size at the reference size; for what stands beside the board.
[[nodiscard]] double TypeScale(const QWidget* board);

// Puts the middle of a window on the middle of another, as far as the screen allows.
void CenterForm(QWidget* window, const QWidget* over);

}  // namespace dtb
