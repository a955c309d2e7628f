#include "windows/scene.h"

#include <algorithm>

#include "windows/look.h"

namespace dtb {

void Scene::Put(QWidget* widget, const Place& place, double typeSize, bool bold) {
  controls_.push_back({widget, place, typeSize, bold});
  Arrange(controls_.back());
}

void Scene::MoveTo(QWidget* widget, const Place& place) {
  const auto control = Find(widget);
  if (control == controls_.end()) return;
  control->place = place;
  Arrange(*control);
}

Place Scene::PlaceOf(const QWidget* widget) const {
  const auto control = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const Control& c) { return c.widget == widget; });
  return control == controls_.end() ? Place{} : control->place;
}

void Scene::Apply(const QSize& innerSize) {
  resizer_.FormResized(innerSize.width(), innerSize.height());
  for (const Control& control : controls_) Arrange(control);
}

void Scene::Arrange(const Control& control) const {
  if (!control.widget) return;
  const Place place = resizer_.Scaled(control.place);
  // Edges are rounded, not sizes, so that equal gaps stay equal to a pixel.
  const QPoint topLeft(qRound(place.left), qRound(place.top));
  const QPoint bottomRight(qRound(place.left + place.width), qRound(place.top + place.height));
  control.widget->setGeometry(QRect(topLeft, bottomRight - QPoint(1, 1)));
  if (control.typeSize <= 0) return;
  const QFont font = look::Font(control.typeSize * resizer_.fontScale(), control.bold);
  if (control.widget->font() != font) control.widget->setFont(font);
}

std::vector<Scene::Control>::iterator Scene::Find(const QWidget* widget) {
  return std::find_if(controls_.begin(), controls_.end(),
                      [&](const Control& c) { return c.widget == widget; });
}

}  // namespace dtb
