// All that the player does to a line-up during a game.
#pragma once

#include <optional>
#include <string>

#include "game/board.h"

namespace dtb {

enum class MouseButton { Left, Right, Other };

// Runs whenever a row of the side's list was selected, by a click or by the system: names the
// batter and gives him a game piece, and a line on the sheet if he has none. Only outside edit
// mode, only on the side at bat, and only for the first nine rows.
void SelectBatter(Board& board, Side side);

// The merge key of steps in a line-up: rows that are gone through, and the drag that a press on one
// begins, are one step.
[[nodiscard]] std::string RowKey(Board& board, Side side);

// The player of this row has a line in the side's table, so that what he does is counted.
[[nodiscard]] bool IsOnSheet(Board& board, Side side, int row);

// A click on a row, or the arrow keys: it becomes the selected one. Rows gone through one after the
// other are one step of the history, and so is the drag that a click begins. Without such a row
// nothing happens.
void SelectRow(Board& board, Side side, int row);

// The buttons "UP" and "DN": the selected entry changes places with its neighbour and stays
// selected. At the end of the list, and without a selection, nothing happens.
void MoveEntryUp(Board& board, Side side);
void MoveEntryDown(Board& board, Side side);

// Double click on a list: the selected entry is replaced by the text of the side's edit field,
// which is emptied. Nothing happens while the field is "".
void ReplaceEntry(Board& board, Side side);

// Mouse press on a list in edit mode: a drag begins at the selected row.
void BeginDrag(Board& board, Side side);

// Mouse release on a list, with the row under the pointer if there is one. The right button shows
// that row's whole entry in a box. In edit mode and with the left button, the entry of the drag
// moves to the selected row, or behind it while Shift alone is held.
void EndDrag(Board& board, Side side, MouseButton button, bool shiftAlone,
             std::optional<int> rowUnderPointer);

}  // namespace dtb
