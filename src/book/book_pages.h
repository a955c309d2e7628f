// The book of all seasons as web pages.
#pragma once

#include <string>

#include "platform/platform.h"
#include "sheet/sheet_plan.h"

namespace dtb::book {

inline constexpr const char* kBookTitle = "The book of all seasons";

// Writes the book into a new folder "All seasons 2026-11-25", of today's date, in the folder "Game
// Rpts": champions, leaders of each season, records, feats, and the careers of those who played in
// several seasons, with a page for each. The first page is "index.html". Tells in boxes of the
// title above which seasons had to be left out and where the folder is, and offers to open it. A
// failure is told; after it, and where the person cancels, nothing is left behind, and earlier
// books stay.
void WriteBook(Platform& platform, const ExportProgress& progress);

}  // namespace dtb::book
