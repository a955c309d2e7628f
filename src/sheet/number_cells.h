// Text in cells that go into columns of numbers.
#pragma once

#include <string>
#include <vector>

#include "game/board.h"

namespace dtb {

struct MisplacedText {
  Side side = Side::Visitors;
  bool lineScore = false;  // a total of the line score; else a cell of the side's table
  int row = 0;             // of that table
  int column = 0;          // of that table, or of the line score's copy on the sheet
  std::string text;        // what stands there
};

// Only what a save would store is looked at, with both present pitchers' rows among it; or else all
// rows that have a name.
enum class NumberRows { Saved, Named };

// All such texts, the visitors' first. A cell of an inning may hold any text, and an empty cell is
// no fault.
[[nodiscard]] std::vector<MisplacedText> TextWhereNumbersBelong(Board& board, NumberRows rows);

// The cell in a scorer's words: "New York, row 2 (Bobby Richardson), column RBI".
[[nodiscard]] std::string PlaceOf(Board& board, const MisplacedText& misplaced);

// The row of the side's table that its present pitcher has, or will take; 0 where there is none.
[[nodiscard]] int RowOfPresentPitcher(Board& board, Side side);

}  // namespace dtb
