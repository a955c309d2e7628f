// The panel "OPTIONS".
#pragma once

#include "aids/aids_state.h"
#include "game/board.h"
#include "windows/shared/controls.h"
#include "windows/shared/scene.h"

namespace dtb {

// fra_Options: what is shown, sound and random ballparks, the master count of outs, the size of the
// pieces and the folder of the player photos.
class OptionsPanel : public Panel {
  Q_OBJECT
 public:
  OptionsPanel(Board& board, Aids& aids, Scene& scene, QWidget* parent);

 signals:
  void parkPlacesWanted();  // "BASES OF THIS PARK"

 private:
  void TabInReadingOrder();
  void BuildChecks();
  void BuildOutsCount();
  void BuildPhotoSize();
  void BuildParkPlaces();
  void BuildPhotoPath();
  void BuildDonation();

  Board& board_;
  Aids& aids_;
  Scene& scene_;
};

}  // namespace dtb
