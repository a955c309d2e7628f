#include "aids/quick_boxes.h"

#include "base/program_error.h"
#include "base/settings_keys.h"
#include "platform/trapped.h"

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
