#include "aids/quick_boxes.h"

#include "shell/program_error.h"
#include "shell/settings_keys.h"

namespace dtb {

void ReadQuickBoxes(Aids& aids) {
  aids.state.cb_QuickBoxes.Set(
      aids.platform.settings.Read(settings::kLabels, settings::kQuickBoxes, "0") == "1");
}

void QuickBoxesClicked(Aids& aids) {
  Trapped(aids.platform.boxes, [&] {
    aids.platform.settings.Write(settings::kLabels, settings::kQuickBoxes,
                                 aids.state.cb_QuickBoxes.value() ? "1" : "0");
  });
}

}  // namespace dtb
