#include "windows/shared/draggable.h"

#include <algorithm>

#include "game/board_state.h"

namespace dtb {

void DraggablePanel::mousePressEvent(QMouseEvent* event) {
  // Without a key a mere click would make the panel jump; it follows the first move.
  if (key_ == DragKey::Control) Drag(event);
}

void DraggablePanel::Drag(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  const bool held = key_ == DragKey::None || event->modifiers().testFlag(Qt::ControlModifier);
  if (!held || window()->isMinimized()) return;
  Place place = scene_.PlaceOf(this);
  const ControlResizer& resizer = scene_.resizer();
  const QPointF middle = mapToParent(event->position().toPoint());
  place.left = std::clamp(middle.x() / resizer.scaleX(), 0.0, kSceneWidth) - place.width / 2;
  place.top = std::clamp(middle.y() / resizer.scaleY(), 0.0, kSceneHeight) - place.height / 2;
  scene_.MoveTo(this, place);
}

}  // namespace dtb
