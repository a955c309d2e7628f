#include "windows/shared/scene.h"

#include <QScreen>
#include <algorithm>
#include <cstdlib>

#include "game/board_state.h"
#include "windows/shared/look.h"

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
  // Edges are rounded on the form, not sizes inside a panel: equal gaps stay equal to a pixel, and
  // nothing sticks out of its panel.
  const QPointF origin = OriginIn(control.widget->parentWidget());
  Place onForm = control.place;
  onForm.left += origin.x();
  onForm.top += origin.y();
  const Place place = resizer_.Scaled(onForm);
  const QPoint parent(qRound(origin.x() * resizer_.scaleX()),
                      qRound(origin.y() * resizer_.scaleY()));
  const QPoint topLeft(qRound(place.left), qRound(place.top));
  const QPoint bottomRight(qRound(place.left + place.width), qRound(place.top + place.height));
  control.widget->setGeometry(QRect(topLeft, bottomRight - QPoint(1, 1)).translated(-parent));
  if (control.typeSize <= 0) return;
  const QFont font = look::Font(control.typeSize * resizer_.fontScale(), control.bold);
  if (control.widget->font() != font) control.widget->setFont(font);
}

QPointF Scene::OriginIn(const QWidget* panel) const {
  QPointF origin;
  for (; panel != nullptr && !panel->isWindow(); panel = panel->parentWidget()) {
    const Place place = PlaceOf(panel);
    origin += QPointF(place.left, place.top);
  }
  return origin;
}

std::vector<Scene::Control>::iterator Scene::Find(const QWidget* widget) {
  return std::find_if(controls_.begin(), controls_.end(),
                      [&](const Control& c) { return c.widget == widget; });
}

// Title bar and borders of the usual desktops; the true ones are known only to a shown window.
constexpr QSize kFrame(8, 40);

void FitAtLaunch(QWidget* window, const ControlResizer& resizer, int above) {
  const QSize free = window->screen()->availableSize() - kFrame - QSize(0, above);
  const double scale =
      ScaleAtLaunch(resizer.baseWidth(), resizer.baseHeight(), free.width(), free.height());
  window->resize(qRound(resizer.baseWidth() * scale), qRound(resizer.baseHeight() * scale) + above);
}

void HoldRatio(QWidget* window, const ControlResizer& resizer, int above) {
  if (!window->isVisible()) return;
  const auto hold = [window, &resizer, above] {
    if (window->isMaximized() || window->isFullScreen() || window->isMinimized()) return;
    const int wanted = qRound(resizer.HeightFor(window->width())) + above;
    const int most = window->screen()->availableSize().height();
    if (wanted <= most) {
      if (std::abs(window->height() - wanted) > 1) window->resize(window->width(), wanted);
      return;
    }
    // As wide as the screen, the window is a little too low for its width, which nobody sees. One
    // that was made half as high becomes the largest of its ratio instead.
    constexpr double kLeastShare = 0.7;
    const int highest = most - kFrame.height();
    if (window->height() >= most * kLeastShare) return;
    window->resize(qRound(resizer.WidthFor(highest - above)), highest);
  };
  QMetaObject::invokeMethod(window, hold, Qt::QueuedConnection);
}

double TypeScale(const QWidget* board) {
  constexpr double kLeast = 10 / look::kBody;  // smaller letters cannot be read in a line of text
  return std::max(kLeast, std::min(board->width() / kSceneWidth, board->height() / kSceneHeight));
}

void CenterForm(QWidget* window, const QWidget* over) {
  const QRect frame = over->frameGeometry();
  QPoint place = frame.center() - QPoint(window->width() / 2, window->height() / 2);
  if (const QScreen* screen = over->screen()) {
    const QRect free = screen->availableGeometry();
    place.setX(
        std::clamp(place.x(), free.left(), std::max(free.left(), free.right() - window->width())));
    place.setY(
        std::clamp(place.y(), free.top(), std::max(free.top(), free.bottom() - window->height())));
  }
  window->move(place);
}

}  // namespace dtb
