// The season as web pages.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "season/season_figures.h"
#include "sheet/sheet_plan.h"

namespace dtb {

// A page of another room among them: its file beside the first page, its title in plain text and
// its body in markup. The first page leads to the first of them.
struct SeasonPage {
  std::string file;
  std::string title;
  std::string body;
};
using MorePages = std::function<std::vector<SeasonPage>(const SeasonFigures& season)>;

// Writes the season into a new folder "Season 2026-11-25", of today's date, in the folder "Game
// Rpts": standings, leaders, a page for each team, each player, each month and each game. The first
// page is "index.html". Tells in boxes of this title where it is, and offers to open it. A
// failure is told; after it, and where the person cancels, nothing is left behind.
void WriteSeasonPages(Platform& platform, const std::string& title,
                      const ExportProgress& progress = {}, const MorePages& more = {});

}  // namespace dtb
