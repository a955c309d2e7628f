// Panels that the player drags over the park.
#pragma once

#include <QMouseEvent>

#include "windows/shared/controls.h"
#include "windows/shared/scene.h"

namespace dtb {

// How a panel is dragged with the left button.
enum class DragBy {
  ControlKey,  // its middle follows the pointer while Ctrl is held
  Middle,      // its middle follows the pointer
  Grip,        // the place where it was caught follows the pointer
};

// A panel that follows the pointer from a press that it got itself: one on a control of it stays
// that control's, however far the pointer slides. A press alone moves nothing. The middle stays
// inside the scene.
class DraggablePanel : public Panel {
  Q_OBJECT
 public:
  DraggablePanel(Scene& scene, QWidget* parent, DragBy by = DragBy::ControlKey)
      : Panel(parent), scene_(scene), by_(by) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  [[nodiscard]] Scene& scene() { return scene_; }

 private:
  void MoveMiddleTo(const QPointF& middle);

  Scene& scene_;
  DragBy by_;
  bool caught_ = false;
  bool dragged_ = false;
  QPointF grip_;        // from the middle of the panel
  QPointF pressPlace_;  // on the screen
};

}  // namespace dtb
