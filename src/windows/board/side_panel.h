// All that belongs to one side on the board: team, line-up, pitcher.
#pragma once

#include "game/board.h"
#include "platform/qt/qt_pictures.h"
#include "windows/board/lineup_view.h"
#include "windows/board/next_step.h"
#include "windows/shared/controls.h"
#include "windows/shared/scene.h"

namespace dtb {

// The visitors' panel, or the home team's mirrored. The panel of the side at bat is lit.
class SidePanel : public Panel {
  Q_OBJECT
 public:
  SidePanel(Board& board, Side side, NextStep& next, QtPictures& pictures, Scene& scene,
            QWidget* parent);
  [[nodiscard]] LineupView& list() { return *list_; }

 private:
  void BuildLoadButton();
  void BuildList();
  void BuildButtons();
  void BuildAtBat();
  void BuildPitcher(QtPictures& pictures);
  void BuildPitcherPlate();
  void ShowDuel(NameLabel* title) const;
  // Puts a control at a place of the visitors' panel, or its mirror image.
  void PutMirrored(QWidget* control, Place place, double typeSize, bool bold = false);

  Board& board_;
  Side side_;
  NextStep& next_;
  Scene& scene_;
  LineupView* list_ = nullptr;
};

}  // namespace dtb
