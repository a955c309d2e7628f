// What goes where on a worksheet.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/stat_grid.h"
#include "platform/workbook.h"

namespace dtb {

// Columns of a grid side by side, all its rows, with its row 0 at the anchor.
struct GridBlock {
  const StatGrid& grid;
  std::vector<int> columns;  // of the grid, in the order in which they stand on the sheet
  int anchorRow = 0;         // rows and columns of the sheet count from 0
  int anchorColumn = 0;
  // These columns hold names or games: their cells are texts, whatever they look like.
  std::vector<int> textColumns = {};
};

// All columns of the grid, from 0 to the last.
[[nodiscard]] std::vector<int> AllColumns(const StatGrid& grid);

// Cells of a sheet that look alike, whether they hold a grid's cell or not. The ends are those of
// the last row and column, and belong to it.
struct LookZone {
  int firstRow = 0;
  int lastRow = 0;
  int firstColumn = 0;
  int lastColumn = 0;
  CellLook look = {};
};

struct SheetPlan {
  SheetHead head;
  std::vector<GridBlock> blocks;     // where two overlap the later one shows
  std::vector<LookZone> zones = {};  // none overlaps another
};

// All exported sheets have rows of 11 points, and type to match: Carlito and Calibri need 1.22 of
// their size, so letters of 8 points are whole.
inline constexpr double kExportRowHeight = 11;
inline constexpr double kExportTypeSize = 8;

// Columns of the sheet from first to last, counted from 0, and their width in characters.
struct ColumnWidths {
  int first;
  int last;
  double characters;
};

// A later width counts where two name the same column.
[[nodiscard]] SheetHead HeadOf(const std::string& name, std::initializer_list<ColumnWidths> widths);

// A figure of a grid as a spreadsheet takes it, with as many decimals as its text shows.
struct Figure {
  double number = 0;
  int decimals = 0;
  bool startsWithPoint = false;  // ".333"

  // "0.00" of "6.33", ".000" of ".333", "" of "12".
  [[nodiscard]] std::string Format() const;
};

// Nothing for a text that is no figure, and for one that would not come back the same: "007", "+1"
// and what has more than 15 digits.
[[nodiscard]] std::optional<Figure> FigureOf(std::string_view text);

// The share of the work that is done, from 0 to 1. False: the person has enough of it.
using ExportProgress = std::function<bool(double share)>;

// The number of rows that the blocks of the sheet fill.
[[nodiscard]] int RowsOf(const SheetPlan& plan);

// Writes the sheet row by row. Row 0 of a grid is its header, so a text. The progress hears the
// share of this sheet. False if it ended the work. Throws ProgramError for more rows than a
// worksheet takes, and what the writer throws.
[[nodiscard]] bool WriteSheet(WorkbookWriter& writer, const SheetPlan& plan,
                              const ExportProgress& progress);

// The grid as a text: so many columns from 0 on, parted by tabs, and rows parted by the given line
// end. Columns that the grid does not have are empty.
[[nodiscard]] std::string GridText(const StatGrid& grid, int columns, std::string_view lineEnd);

}  // namespace dtb
