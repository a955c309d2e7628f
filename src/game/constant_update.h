// What is kept in step without any click on an outcome.
#pragma once

#include "game/board.h"

namespace dtb {

// Brings the totals up to date and copies the board's line score to the sheet. Opens the columns of
// innings 10 to 20 whose visitors' cell has text and closes the others.
void ConstantUpdate(Board& board);

// The copy alone; the totals stay as they are.
void CopyLineScore(Board& board);

}  // namespace dtb
