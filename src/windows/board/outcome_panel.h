// The outcome labels: how the player tells what dice and charts said.
#pragma once

#include <functional>

#include "game/board.h"
#include "windows/board/next_step.h"
#include "windows/shared/draggable.h"

namespace dtb {

// The panel pb_Res.
class OutcomePanel : public DraggablePanel {
  Q_OBJECT
 public:
  OutcomePanel(Board& board, NextStep& next, Scene& scene, QWidget* parent);

 signals:
  // A click on "STATS".
  void statsWanted();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool IsSecondHalf(const QObject* button);

  Board& board_;
  const QObject* doubled_ = nullptr;  // label whose double click is not over yet
  bool recorded_ = false;             // the click before did
};

}  // namespace dtb
