// The sheet of a game as a workbook.
#pragma once

#include "game/board.h"
#include "sheet/sheet_plan.h"

namespace dtb {

// One worksheet with all three tables: the visitors' from A1, the home team's below it, the line
// score from T1. The home team's headers stand in the row of the visitors' last player.
[[nodiscard]] SheetPlan GameSheet(const StatSheet& sheet);

// Writes the workbook of the present game into the folder "Game Rpts" and opens it; the clipboard
// has the text of the line score afterwards. True if it did. Without a spreadsheet program, and
// where the file cannot be written, that is told as a Program Error and nothing has changed.
bool ExportGameToSpreadsheet(Board& board);

}  // namespace dtb
