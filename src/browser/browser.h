// The context of the browser's operations.
#pragma once

#include "browser/browser_state.h"
#include "platform/platform.h"

namespace dtb {

struct Browser {
  BrowserState& state;
  Platform& platform;
};

// Title of the form and of its own messages.
inline constexpr const char* kBrowserTitle = "Database";

}  // namespace dtb
