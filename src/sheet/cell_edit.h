// Corrections by hand in the tables of the sheet.
#pragma once

#include "game/board.h"

namespace dtb {

// Double click or Enter on a cell of a side's table: opens the editor with the cell's text. A cell
// of a hidden column, or outside the table, opens none.
void BeginCellEdit(Board& board, Side side, int row, int column);

// Enter in the editor: its text goes into the cell exactly as typed, and the editor closes. Returns
// the row that is current then: the one below, or the last row itself.
int CommitCellEdit(Board& board);

// The editor loses the focus in any other way: it closes and what was typed is dropped.
void DropCellEdit(Board& board);

// For the buttons that take figures from the sheet. True, and told, while the editor is open and
// holds another text than its cell. An editor in which nothing was typed closes.
[[nodiscard]] bool TellFigureBeingTyped(Board& board);

// Delete: the cell becomes "", without a question.
void ClearCell(Board& board, Side side, int row, int column);

}  // namespace dtb
