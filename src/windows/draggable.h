// Panels that the player drags over the park.
#pragma once

#include <QMouseEvent>

#include "windows/controls.h"
#include "windows/scene.h"

namespace dtb {

// A panel whose middle jumps under the pointer and follows it while Ctrl and the left button are
// held. Its middle stays inside the scene.
class DraggablePanel : public Panel {
  Q_OBJECT
 public:
  DraggablePanel(Scene& scene, QWidget* parent) : Panel(parent), scene_(scene) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override { Drag(event); }
  void mouseMoveEvent(QMouseEvent* event) override { Drag(event); }
  [[nodiscard]] Scene& scene() { return scene_; }

 private:
  void Drag(QMouseEvent* event);

  Scene& scene_;
};

}  // namespace dtb
