#include "windows/shared/draggable.h"

#include <algorithm>

#include "game/board_state.h"

namespace dtb {

void DraggablePanel::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  caught_ = true;
  dragged_ = false;
  pressPlace_ = event->globalPosition();
  grip_ = by_ == DragBy::Grip ? event->position() - QRectF(rect()).center() : QPointF();
}

void DraggablePanel::mouseMoveEvent(QMouseEvent* event) {
  if (!caught_ || !event->buttons().testFlag(Qt::LeftButton) || window()->isMinimized()) return;
  if (by_ == DragBy::ControlKey && !event->modifiers().testFlag(Qt::ControlModifier)) return;
  // A hand that shakes while it clicks does not drag.
  constexpr double kStill = 4;  // pixels
  const QPointF way = event->globalPosition() - pressPlace_;
  if (!dragged_ && way.manhattanLength() < kStill) return;
  dragged_ = true;
  MoveMiddleTo(mapToParent(event->position().toPoint()) - grip_);
}

void DraggablePanel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) caught_ = false;
}

void DraggablePanel::MoveMiddleTo(const QPointF& middle) {
  Place place = scene_.PlaceOf(this);
  const ControlResizer& resizer = scene_.resizer();
  place.left = std::clamp(middle.x() / resizer.scaleX(), 0.0, kSceneWidth) - place.width / 2;
  place.top = std::clamp(middle.y() / resizer.scaleY(), 0.0, kSceneHeight) - place.height / 2;
  scene_.MoveTo(this, place);
}

}  // namespace dtb
