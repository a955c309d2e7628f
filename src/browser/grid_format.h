// How a grid of the browser is filled, formatted and sorted.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "browser/browser.h"
#include "platform/database.h"

namespace dtb {

// The result of a statement as a grid of the browser; all columns are centred but those listed, and
// as wide as their texts. Throws ProgramError. Any thread may call it.
[[nodiscard]] StatGrid ReadGrid(Database& database, const Statement& statement,
                                std::span<const int> leftAligned);

// The same of texts, the header first; all rows have as many. The first column is left-aligned.
[[nodiscard]] StatGrid GridOf(const std::vector<std::vector<std::string>>& rows);

// Shows these contents in a grid.
void ShowGrid(BrowserGrid& grid, StatGrid&& contents);

enum class Decimals { Two = 2, Three = 3 };  // the patterns ".00" and ".000"

// A number with two or three decimals, rounded half away from zero, without a zero before the
// point: ".250", "12.00", "-.50". Text that is no number stays as it is.
[[nodiscard]] std::string PatternText(std::string_view number, Decimals decimals);

// Rewrites the data cells of a column so and aligns it right.
void FormatColumn(StatGrid& grid, int column, Decimals decimals);

// Rows in pairs: rows 1 and 2 take the first tint, 3 and 4 the second, and so on.
void BandRows(StatGrid& grid, Colour first, Colour second);

// Double click on a column of MSHFlexGrid2 to 5. Sorts with Ctrl held, else does nothing. A new
// column is sorted in the direction used last, the same column the other way. True: it sorted.
bool SortOnDoubleClick(Browser& browser, BrowserGrid& grid, int column);

// The direction used last is from large to small.
[[nodiscard]] bool SortedDown(const BrowserState& state);

}  // namespace dtb
