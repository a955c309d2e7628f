// The noise of the crowd.
#pragma once

#include "aids/aids_state.h"

namespace dtb {

// The check box "CROWD NOISE" was clicked: the loop starts or stops. Reports a file that is missing
// or cannot be played; without a sound device it is silent.
void CrowdClicked(Aids& aids);

}  // namespace dtb
