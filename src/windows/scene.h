// Fixed places in layout units that follow the size of a form.
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "shell/control_resizer.h"

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
  [[nodiscard]] std::vector<Control>::iterator Find(const QWidget* widget);

  ControlResizer resizer_;
  std::vector<Control> controls_;
};

}  // namespace dtb
