// A table of text cells, addressed by row and column from 0, with a fixed header row 0.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "game/colour.h"

namespace dtb {

enum class CellAlignment { Left, Centred, Right };

// One flat store of cells: a text of up to seven bytes lies in the cell itself, a longer one beside
// it. A column of width 0 is hidden, yet its cells exist. Copies take contents and looks and leave
// the observer where it is; assignment puts them back and tells the observer of what changed.
class StatGrid {
 public:
  struct Column {
    int width = 0;  // twentieths of a point; 0: hidden
    CellAlignment alignment = CellAlignment::Left;
    friend bool operator==(const Column&, const Column&) = default;
  };

  struct Observer {
    std::function<void(int row, int column)> cellChanged;
    std::function<void(int column)> columnChanged;
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

  // Data rows alternate between two colours that tell the table apart from its neighbour.
  void SetRowColours(Colour evenRows, Colour oddRows);
  [[nodiscard]] Colour RowColour(int row) const { return row % 2 == 0 ? evenRows_ : oddRows_; }

  // There is one observer at most.
  void Observe(Observer observer) { observer_ = std::move(observer); }

  friend bool operator==(const StatGrid& a, const StatGrid& b);

 private:
  // The last byte is the length of a text held here, or kLong: then the first four bytes are the
  // text's place in longTexts_.
  using Cell = std::array<char, 8>;
  static constexpr std::size_t kShortLimit = 7;
  static constexpr char kLong = 127;

  [[nodiscard]] std::size_t IndexOf(int row, int column) const;
  [[nodiscard]] std::string_view TextAt(std::size_t index) const;
  void StoreAt(std::size_t index, std::string_view text);

  int rows_;
  std::vector<Column> columns_;
  std::vector<Cell> cells_;
  std::vector<std::string> longTexts_;
  std::vector<std::uint32_t> freeLongTexts_;
  Colour evenRows_ = kWhite;
  Colour oddRows_ = kWhite;
  Observer observer_;
};

}  // namespace dtb
