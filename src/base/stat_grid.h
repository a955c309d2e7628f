// A table of text cells, addressed by row and column from 0, with a fixed header row 0.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/cell_column.h"
#include "base/colour.h"

namespace dtb {

// Width of a column that nobody has sized yet.
inline constexpr int kUsualColumnWidth = 900;

enum class CellAlignment { Left, Centred, Right };

// New contents for a whole grid, on their way into it: headers, then cell after cell.
struct GridContents {
  std::vector<std::string> headers;
  std::vector<CellColumn> columns;  // as many as headers, all of the same size
};

// A column of width 0 is hidden, yet its cells exist. Copies take contents and looks and leave the
// observer where it is; assignment puts them back and tells the observer of what changed.
class StatGrid {
 public:
  struct Column {
    int width = 0;  // twentieths of a point; 0: hidden
    CellAlignment alignment = CellAlignment::Left;
    std::optional<Colour> ink = {};  // of the data cells' text; none: the usual one
    friend bool operator==(const Column&, const Column&) = default;
  };

  struct Observer {
    std::function<void(int row, int column)> cellChanged;
    std::function<void(int column)> columnChanged;
    // Anything may have changed, the number of rows and columns too.
    std::function<void()> replaced = {};
    // The texts of many data cells changed, or which row holds them; nothing else.
    std::function<void()> rearranged = {};
  };

  StatGrid(int rows, int columns);
  StatGrid(const StatGrid& other);
  StatGrid& operator=(const StatGrid& other);
  ~StatGrid() = default;

  [[nodiscard]] int rows() const { return rows_; }
  [[nodiscard]] int columns() const { return static_cast<int>(columns_.size()); }

  // All cell operations throw ProgramError for a row or column outside the table.
  // The view is good until the next write to the grid.
  [[nodiscard]] std::string_view Text(int row, int column) const;
  void SetText(int row, int column, std::string_view text);
  // Reads the cell as a counter, adds 1 and writes it back: "", "1", "2".
  void Raise(int row, int column);

  // The first row, from row 0 on, whose cell in this column is exactly this text.
  [[nodiscard]] std::optional<int> FindRow(int column, std::string_view text) const;

  [[nodiscard]] const Column& ColumnAt(int column) const { return columns_.at(column); }
  void SetColumnWidth(int column, int width);
  void SetColumnAlignment(int column, CellAlignment alignment);
  void SetColumnInk(int column, std::optional<Colour> ink);

  // Data rows alternate between two colours that tell the table apart from its neighbour.
  void SetRowColours(Colour evenRows, Colour oddRows) { SetRowBands(oddRows, evenRows, 1); }
  // From row 1 on, bands of so many rows alternate between two colours.
  void SetRowBands(Colour first, Colour second, int rowsPerBand);
  // The first rows have a colour, the others are white.
  void SetFirstBand(Colour first, int rows);
  [[nodiscard]] Colour RowColour(int row) const {
    const int band = (row - 1) / rowsPerBand_;
    return row > 0 && (oneBand_ ? band == 0 : band % 2 == 0) ? firstBand_ : secondBand_;
  }

  // Takes new contents, with the columns in their first look (shown, left-aligned, usual ink)
  // and white rows. One notification.
  void Replace(GridContents contents);
  // Takes all that the other grid holds, looks as well. One notification.
  void Take(StatGrid&& other);
  // Puts the function's result in place of each text of a column's data rows. One notification.
  void RewriteColumn(int column, const std::function<std::string(std::string_view)>& rewrite);
  // Sorts the data rows on a column as CellColumn::Sorted says. One notification.
  void SortRows(int column, SortOrder order);
  // The number of characters of the longest text of a column, its header included.
  [[nodiscard]] std::size_t LongestText(int column) const;
  // Bytes of store that all cells take.
  [[nodiscard]] std::size_t BytesTaken() const;

  // There is one observer at most.
  void Observe(Observer observer) { observer_ = std::move(observer); }

  friend bool operator==(const StatGrid& a, const StatGrid& b);

 private:
  void RequireCell(int row, int column) const;
  template <class Change>
  void ChangeColumn(int column, Change change);

  int rows_;
  std::vector<Column> columns_;
  std::vector<std::string> headers_;  // row 0
  std::vector<CellColumn> cells_;     // rows from 1 on
  Colour firstBand_ = kWhite;
  Colour secondBand_ = kWhite;
  int rowsPerBand_ = 1;
  bool oneBand_ = false;  // the second goes on to the end
  Observer observer_;
};

}  // namespace dtb
