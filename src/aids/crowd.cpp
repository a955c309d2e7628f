#include "aids/crowd.h"

#include "base/program_error.h"
#include "platform/trapped.h"

namespace dtb {

void CrowdClicked(Aids& aids) {
  Trapped(aids.platform.boxes, [&] {
    if (aids.state.cb_Crowd.value()) {
      aids.platform.sounds.StartLoop(aids.platform.programFolder / "BaseballCrowd.wav");
    } else {
      aids.platform.sounds.StopLoop();
    }
  });
}

}  // namespace dtb
