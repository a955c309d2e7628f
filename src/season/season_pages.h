// The season as web pages.
#pragma once

#include <string>

#include "platform/platform.h"
#include "sheet/sheet_plan.h"

namespace dtb {

// Writes the season into a new folder "Season 2026-11-25", of today's date, in the folder "Game
// Rpts": standings, leaders, a page for each team, each player, each month and each game. The first
// page is "index.html". Tells in boxes of this title where it lies, and offers to open it. A
// failure is told; after it, and where the person cancels, nothing is left behind.
void WriteSeasonPages(Platform& platform, const std::string& title,
                      const ExportProgress& progress = {});

}  // namespace dtb
