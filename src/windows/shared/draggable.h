// Panels that the player drags over the park.
#pragma once

#include <QMouseEvent>

#include "windows/shared/controls.h"
#include "windows/shared/scene.h"

namespace dtb {

// The key that is held while a panel is dragged.
enum class DragKey { None, Control };

// A panel whose middle jumps under the pointer and follows it while the key and the left button are
// held. Its middle stays inside the scene.
class DraggablePanel : public Panel {
  Q_OBJECT
 public:
  DraggablePanel(Scene& scene, QWidget* parent, DragKey key = DragKey::Control)
      : Panel(parent), scene_(scene), key_(key) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override { Drag(event); }
  [[nodiscard]] Scene& scene() { return scene_; }

 private:
  void Drag(QMouseEvent* event);

  Scene& scene_;
  DragKey key_;
};

}  // namespace dtb
