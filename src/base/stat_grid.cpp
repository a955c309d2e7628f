#include "base/stat_grid.h"

#include <algorithm>

#include "base/program_error.h"
#include "base/text_cell.h"

namespace dtb {
namespace {

std::size_t Index(int rowOrColumn) { return static_cast<std::size_t>(rowOrColumn); }

}  // namespace

StatGrid::StatGrid(int rows, int columns)
    : rows_(rows),
      columns_(Index(columns)),
      headers_(Index(columns)),
      cells_(Index(columns), CellColumn(Index(rows - 1))) {}

StatGrid::StatGrid(const StatGrid& other)
    : rows_(other.rows_),
      columns_(other.columns_),
      headers_(other.headers_),
      cells_(other.cells_),
      firstBand_(other.firstBand_),
      secondBand_(other.secondBand_),
      rowsPerBand_(other.rowsPerBand_),
      oneBand_(other.oneBand_) {}

// Cells are written one by one, so that the observer hears of those that change.
// cppcheck-suppress operatorEqVarError
StatGrid& StatGrid::operator=(const StatGrid& other) {
  if (this == &other) return *this;
  if (rows_ != other.rows_ || columns_.size() != other.columns_.size()) {
    throw ProgramError(error_number::kInternal, "Tables of different size");
  }
  SetRowBands(other.firstBand_, other.secondBand_, other.rowsPerBand_);
  oneBand_ = other.oneBand_;
  for (int column = 0; column < columns(); ++column) {
    SetColumnWidth(column, other.ColumnAt(column).width);
    SetColumnAlignment(column, other.ColumnAt(column).alignment);
    SetColumnInk(column, other.ColumnAt(column).ink);
    for (int row = 0; row < rows_; ++row) SetText(row, column, other.Text(row, column));
  }
  return *this;
}

void StatGrid::RequireCell(int row, int column) const {
  if (row >= 0 && row < rows_ && column >= 0 && column < columns()) return;
  throw ProgramError(
      error_number::kSubscriptOutOfRange,
      "The table has no row " + std::to_string(row) + ", column " + std::to_string(column));
}

std::string_view StatGrid::Text(int row, int column) const {
  RequireCell(row, column);
  if (row == 0) return headers_[Index(column)];
  return cells_[Index(column)].Text(Index(row - 1));
}

void StatGrid::SetText(int row, int column, std::string_view text) {
  if (Text(row, column) == text) return;
  if (row == 0) {
    headers_[Index(column)] = text;
  } else {
    cells_[Index(column)].Set(Index(row - 1), text);
  }
  if (observer_.cellChanged) observer_.cellChanged(row, column);
}

void StatGrid::Raise(int row, int column) { SetText(row, column, RaisedText(Text(row, column))); }

std::optional<int> StatGrid::FindRow(int column, std::string_view text) const {
  if (Text(0, column) == text) return 0;
  const auto cell = cells_[Index(column)].Find(text);
  if (!cell) return std::nullopt;
  return static_cast<int>(*cell) + 1;
}

void StatGrid::SetColumnWidth(int column, int width) {
  ChangeColumn(column, [width](Column& changed) { changed.width = width; });
}

void StatGrid::SetColumnAlignment(int column, CellAlignment alignment) {
  ChangeColumn(column, [alignment](Column& changed) { changed.alignment = alignment; });
}

void StatGrid::SetColumnInk(int column, std::optional<Colour> ink) {
  ChangeColumn(column, [ink](Column& changed) { changed.ink = ink; });
}

template <class Change>
void StatGrid::ChangeColumn(int column, Change change) {
  Column& changed = columns_.at(Index(column));
  const Column before = changed;
  change(changed);
  if (changed != before && observer_.columnChanged) observer_.columnChanged(column);
}

void StatGrid::SetRowBands(Colour first, Colour second, int rowsPerBand) {
  firstBand_ = first;
  secondBand_ = second;
  rowsPerBand_ = std::max(rowsPerBand, 1);
  oneBand_ = false;
}

void StatGrid::SetFirstBand(Colour first, int rows) {
  SetRowBands(rows > 0 ? first : kWhite, kWhite, rows);
  oneBand_ = true;
}

void StatGrid::Replace(GridContents contents) {
  rows_ = contents.columns.empty() ? 1 : static_cast<int>(contents.columns.front().size()) + 1;
  columns_.assign(contents.columns.size(), Column{.width = kUsualColumnWidth});
  headers_ = std::move(contents.headers);
  cells_ = std::move(contents.columns);
  SetRowBands(kWhite, kWhite, 1);
  if (observer_.replaced) observer_.replaced();
}

void StatGrid::Take(StatGrid&& other) {
  rows_ = other.rows_;
  columns_ = std::move(other.columns_);
  headers_ = std::move(other.headers_);
  cells_ = std::move(other.cells_);
  SetRowBands(other.firstBand_, other.secondBand_, other.rowsPerBand_);
  oneBand_ = other.oneBand_;
  if (observer_.replaced) observer_.replaced();
}

void StatGrid::RewriteColumn(int column,
                             const std::function<std::string(std::string_view)>& rewrite) {
  cells_.at(Index(column)).Rewrite(rewrite);
  if (observer_.rearranged) observer_.rearranged();
}

void StatGrid::SortRows(int column, SortOrder order) {
  const auto sorted = cells_.at(Index(column)).Sorted(order);
  for (CellColumn& cells : cells_) cells.Arrange(sorted);
  if (observer_.rearranged) observer_.rearranged();
}

std::size_t StatGrid::LongestText(int column) const {
  return std::max(CharacterCount(Text(0, column)), cells_[Index(column)].LongestText());
}

std::size_t StatGrid::BytesTaken() const {
  std::size_t bytes = 0;
  for (const CellColumn& cells : cells_) bytes += cells.BytesTaken();
  return bytes;
}

bool operator==(const StatGrid& a, const StatGrid& b) {
  if (a.rows_ != b.rows_ || a.columns_ != b.columns_ || a.headers_ != b.headers_ ||
      a.firstBand_ != b.firstBand_ || a.secondBand_ != b.secondBand_ ||
      a.rowsPerBand_ != b.rowsPerBand_) {
    return false;
  }
  for (int column = 0; column < a.columns(); ++column) {
    for (int row = 1; row < a.rows_; ++row) {
      if (a.Text(row, column) != b.Text(row, column)) return false;
    }
  }
  return true;
}

}  // namespace dtb
