#include "sheet/stat_grid.h"

#include <cstring>

#include "game/text_cell.h"
#include "shell/program_error.h"

namespace dtb {

StatGrid::StatGrid(int rows, int columns)
    : rows_(rows),
      columns_(static_cast<std::size_t>(columns)),
      cells_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {}

StatGrid::StatGrid(const StatGrid& other)
    : rows_(other.rows_),
      columns_(other.columns_),
      cells_(other.cells_),
      longTexts_(other.longTexts_),
      freeLongTexts_(other.freeLongTexts_),
      evenRows_(other.evenRows_),
      oddRows_(other.oddRows_) {}

// Cells are written one by one, so that the observer hears of those that change.
// cppcheck-suppress operatorEqVarError
StatGrid& StatGrid::operator=(const StatGrid& other) {
  if (this == &other) return *this;
  if (rows_ != other.rows_ || columns_.size() != other.columns_.size()) {
    throw ProgramError(error_number::kInternal, "Tables of different size");
  }
  SetRowColours(other.evenRows_, other.oddRows_);
  for (int column = 0; column < columns(); ++column) {
    SetColumnWidth(column, other.ColumnAt(column).width);
    SetColumnAlignment(column, other.ColumnAt(column).alignment);
    for (int row = 0; row < rows_; ++row) SetText(row, column, other.Text(row, column));
  }
  return *this;
}

std::size_t StatGrid::IndexOf(int row, int column) const {
  if (row < 0 || row >= rows_ || column < 0 || column >= columns()) {
    throw ProgramError(
        error_number::kSubscriptOutOfRange,
        "The table has no row " + std::to_string(row) + ", column " + std::to_string(column));
  }
  return static_cast<std::size_t>(row) * columns_.size() + static_cast<std::size_t>(column);
}

std::string_view StatGrid::TextAt(std::size_t index) const {
  const Cell& cell = cells_[index];
  if (cell.back() != kLong) return {cell.data(), static_cast<std::size_t>(cell.back())};
  std::uint32_t place = 0;
  std::memcpy(&place, cell.data(), sizeof place);
  return longTexts_[place];
}

void StatGrid::StoreAt(std::size_t index, std::string_view text) {
  Cell& cell = cells_[index];
  std::uint32_t place = 0;
  const bool wasLong = cell.back() == kLong;
  if (wasLong) std::memcpy(&place, cell.data(), sizeof place);
  if (text.size() <= kShortLimit) {
    Cell shortCell{};
    std::memcpy(shortCell.data(), text.data(), text.size());
    shortCell.back() = static_cast<char>(text.size());
    if (wasLong) {
      longTexts_[place].clear();
      freeLongTexts_.push_back(place);
    }
    cell = shortCell;
    return;
  }
  if (!wasLong) {
    if (freeLongTexts_.empty()) {
      place = static_cast<std::uint32_t>(longTexts_.size());
      longTexts_.emplace_back(text);
    } else {
      place = freeLongTexts_.back();
      freeLongTexts_.pop_back();
      longTexts_[place].assign(text);
    }
    std::memcpy(cell.data(), &place, sizeof place);
    cell.back() = kLong;
  } else {
    longTexts_[place].assign(text);
  }
}

std::string_view StatGrid::Text(int row, int column) const { return TextAt(IndexOf(row, column)); }

void StatGrid::SetText(int row, int column, std::string_view text) {
  const std::size_t index = IndexOf(row, column);
  if (TextAt(index) == text) return;
  StoreAt(index, text);
  if (observer_.cellChanged) observer_.cellChanged(row, column);
}

void StatGrid::Raise(int row, int column) { SetText(row, column, RaisedText(Text(row, column))); }

std::optional<int> StatGrid::FindRow(int column, std::string_view text) const {
  for (int row = 0; row < rows_; ++row) {
    if (Text(row, column) == text) return row;
  }
  return std::nullopt;
}

void StatGrid::SetColumnWidth(int column, int width) {
  Column& changed = columns_.at(static_cast<std::size_t>(column));
  if (changed.width == width) return;
  changed.width = width;
  if (observer_.columnChanged) observer_.columnChanged(column);
}

void StatGrid::SetColumnAlignment(int column, CellAlignment alignment) {
  Column& changed = columns_.at(static_cast<std::size_t>(column));
  if (changed.alignment == alignment) return;
  changed.alignment = alignment;
  if (observer_.columnChanged) observer_.columnChanged(column);
}

void StatGrid::SetRowColours(Colour evenRows, Colour oddRows) {
  evenRows_ = evenRows;
  oddRows_ = oddRows;
}

bool operator==(const StatGrid& a, const StatGrid& b) {
  if (a.rows_ != b.rows_ || a.columns_ != b.columns_ || a.evenRows_ != b.evenRows_ ||
      a.oddRows_ != b.oddRows_) {
    return false;
  }
  for (std::size_t i = 0; i < a.cells_.size(); ++i) {
    if (a.TextAt(i) != b.TextAt(i)) return false;
  }
  return true;
}

}  // namespace dtb
