// The button "System Info..." of the about box.
#pragma once

#include "platform/platform.h"

namespace dtb {

// Starts the desktop's own tool, or tells that there is none.
void StartSysInfo(Platform& platform);

}  // namespace dtb
