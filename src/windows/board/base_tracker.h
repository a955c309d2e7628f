// The small diamond that the player may use as a memo of the bases.
#pragma once

#include "game/board.h"
#include "windows/shared/draggable.h"

namespace dtb {

// The panel pb_BaseTracker.
class BaseTracker : public DraggablePanel {
  Q_OBJECT
 public:
  BaseTracker(Board& board, Scene& scene, QWidget* parent);
};

}  // namespace dtb
