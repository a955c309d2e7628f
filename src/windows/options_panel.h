// The panel "OPTIONS".
#pragma once

#include "game/board.h"
#include "windows/controls.h"
#include "windows/scene.h"

namespace dtb {

// fra_Options: what is shown, the master count of outs, the size of the pieces and the folder of
// the player photos. Rows are kept free for dice, sound and ballparks.
class OptionsPanel : public Panel {
  Q_OBJECT
 public:
  OptionsPanel(Board& board, Scene& scene, QWidget* parent);

 private:
  void BuildChecks();
  void BuildOutsCount();
  void BuildPhotoSize();
  void BuildPhotoPath();
  void BuildDonation();

  Board& board_;
  Scene& scene_;
};

}  // namespace dtb
