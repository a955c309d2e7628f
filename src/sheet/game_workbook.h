// The sheet of a game as a workbook.
#pragma once

#include "game/board.h"
#include "sheet/sheet_plan.h"

namespace dtb {

// One worksheet with all three tables: the visitors' from A1, the home team's below it, the line
// score from T1. The home team's headers stand in the row of the visitors' last player.
[[nodiscard]] SheetPlan GameSheet(const StatSheet& sheet);

// Writes the workbook of the present game into the folder "Game Rpts", opens it and tells where it
// lies; the clipboard has the text of the line score afterwards. True if a program opened it. A
// missing spreadsheet program is told as a Program Error, and the workbook written only if the
// person wants it all the same. A file that cannot be written is a Program Error, and nothing has
// changed.
bool ExportGameToSpreadsheet(Board& board);

}  // namespace dtb
