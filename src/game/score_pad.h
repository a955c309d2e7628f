// Corrections of the line score by hand.
#pragma once

#include <string>

#include "game/board.h"

namespace dtb {

// A line-score cell, 0 to 22, took the focus: the score pad works on it from now on, and the sheet
// is brought up to date.
void FocusScoreCell(Board& board, Side side, int cell);

// The person moved the caret of that cell, or typed into it. A caret at the start, or a selected
// text, means that the next digit takes the place of what stands there.
void MoveCaret(Board& board, bool toStart);
[[nodiscard]] bool CaretAtStart(const BoardState& state);

// A click on a digit header, "0" to "9".
void ClickDigit(Board& board, const std::string& digit);

// Enters the digit lbl_NumSel into the cell that had the focus last: instead of its text if the
// caret stands at the start, else behind it. Before any cell had the focus it does nothing, nor
// with a third digit for one inning.
void PutValue(Board& board);

// Double click on a line-score cell: a finished half-inning becomes unfinished and the other way
// round. The totals, cells 20 to 22, have no such mark.
void ToggleFinished(Board& board, Side side, int cell);

}  // namespace dtb
