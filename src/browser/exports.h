// What leaves the browser as a workbook.
#pragma once

#include <vector>

#include "browser/browser.h"
#include "sheet/sheet_plan.h"

namespace dtb {

// The six sheets of what the grids show, in the order in which they stand in the workbook: the one
// made last is in front.
[[nodiscard]] std::vector<SheetPlan> GridSheets(const BrowserState& state);

// Writes the six sheets into a workbook of the folder "Game Rpts"; the clipboard has the text of
// the pairings afterwards. Returns the file, or nothing where the person cancelled, where no
// spreadsheet program is installed, or where the file cannot be written. The last two are told, and
// in all three nothing has changed.
[[nodiscard]] std::optional<std::filesystem::path> ExportGrids(Browser& browser,
                                                               const ExportProgress& progress = {});

// Writes all rows of the five tables into a workbook of the folder "Game Rpts", a sheet for each,
// and tells that it is done. A table with more rows than a sheet takes goes on in further sheets. A
// failure is told; cancelling leaves no file.
void ExportTables(Browser& browser, const ExportProgress& progress = {});

}  // namespace dtb
