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
// the pairings afterwards. Returns the file, which is still to be opened, or nothing where the
// person cancelled or the file cannot be written, which is told; nothing has changed then. Where no
// spreadsheet program is installed, that is told, and the workbook written, and told where it is,
// only if the person wants it all the same; the result is nothing.
[[nodiscard]] std::optional<std::filesystem::path> ExportGrids(Browser& browser,
                                                               const ExportProgress& progress = {});

// Writes all rows of the five tables into a workbook of the folder "Game Rpts", a sheet for each,
// and then those of the tables of the plays that have rows,
// and tells that it is done and where it lies. A table with more rows than a sheet takes goes on in
// further sheets. A failure is told; cancelling leaves no file.
void ExportTables(Browser& browser, const ExportProgress& progress = {});

}  // namespace dtb
