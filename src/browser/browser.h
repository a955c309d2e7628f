// The context of the browser's operations, and the opening and closing of the form.
#pragma once

#include <functional>

#include "browser/browser_state.h"
#include "platform/platform.h"

namespace dtb {

struct Browser {
  BrowserState& state;
  Platform& platform;
};

// Title of the form and of its own messages.
inline constexpr const char* kBrowserTitle = "Database";

// Hears after each step how many of all steps are done.
using Progress = std::function<void(int done, int steps)>;

// Fills a new BrowserState: tab 0, eight queries, blue GameID cells, the bracket. What is wrong
// with the database is told in one message, after the bracket is there.
void OpenBrowser(Browser& browser, const Progress& progress = {});

// Stores the bracket.
void CloseBrowser(Browser& browser);

}  // namespace dtb
