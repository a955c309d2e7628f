#include "browser/grid_format.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text_cell.h"
#include "database/rows.h"

namespace dtb {
namespace {

// Twentieths of a point.
constexpr int kFixedColumnWidth = 100;
constexpr int kCellMargins = 150;
constexpr int kCharacterWidth = 105;
constexpr int kNarrowest = 420;
constexpr int kWidest = 4200;

constexpr std::uint8_t kAscending = 1;
constexpr std::uint8_t kDescending = 2;

void FitColumn(StatGrid& grid, int column) {
  const int wanted =
      kCellMargins + kCharacterWidth * static_cast<int>(std::min<std::size_t>(
                                           grid.LongestText(column), kWidest / kCharacterWidth));
  grid.SetColumnWidth(column, std::clamp(wanted, kNarrowest, kWidest));
}

// Adds one to a decimal number's last digit.
void RaiseLastDigit(std::string& digits) {
  for (std::size_t place = digits.size(); place-- > 0;) {
    char& digit = digits[place];
    if (digit == '.') continue;
    if (digit != '9') return static_cast<void>(++digit);
    digit = '0';
  }
  digits.insert(digits.begin(), '1');
}

void LayOut(StatGrid& cells, std::span<const int> leftAligned) {
  cells.SetColumnWidth(0, kFixedColumnWidth);
  for (int column = 1; column < cells.columns(); ++column) {
    FitColumn(cells, column);
    if (std::ranges::find(leftAligned, column) == leftAligned.end()) {
      cells.SetColumnAlignment(column, CellAlignment::Centred);
    }
  }
}

}  // namespace

StatGrid ReadGrid(Database& database, const Statement& statement,
                  std::span<const int> leftAligned) {
  StatGrid cells = TextsOf(database, statement);
  LayOut(cells, leftAligned);
  return cells;
}

StatGrid GridOf(const std::vector<std::vector<std::string>>& rows) {
  GridContents contents{{""}, std::vector<CellColumn>(1)};
  for (const std::string& header : rows.front()) {
    contents.headers.push_back(header);
    contents.columns.emplace_back();
  }
  for (std::size_t row = 1; row < rows.size(); ++row) {
    contents.columns.front().Append({});
    for (std::size_t column = 0; column < rows[row].size(); ++column) {
      contents.columns.at(column + 1).Append(rows[row][column]);
    }
  }
  StatGrid cells(1, 1);
  cells.Replace(std::move(contents));
  constexpr std::array kNameColumn{1};
  LayOut(cells, kNameColumn);
  return cells;
}

void ShowGrid(BrowserGrid& grid, StatGrid&& contents) {
  grid.grid.Take(std::move(contents));
  grid.visible.Set(true);
}

std::string PatternText(std::string_view number, Decimals decimals) {
  const auto value = WholeNumberOf(number);
  if (!value) return std::string(number);
  const auto places = static_cast<std::size_t>(decimals);
  // Rounded as a person rounds the digits that are there: 2.675 is 2.68, whatever its double.
  std::string digits = DecimalText(*value < 0 ? -*value : *value);
  if (digits.find('.') == std::string::npos) digits += '.';
  const std::size_t kept = digits.find('.') + 1 + places;
  digits.resize(std::max(digits.size(), kept + 1), '0');
  const bool up = digits[kept] >= '5';
  digits.resize(kept);
  if (up) RaiseLastDigit(digits);
  if (digits.starts_with("0.")) digits.erase(0, 1);
  const bool negative = *value < 0 && digits.find_first_not_of("0.") != std::string::npos;
  return negative ? "-" + digits : digits;
}

void FormatColumn(StatGrid& grid, int column, Decimals decimals) {
  grid.RewriteColumn(column,
                     [decimals](std::string_view text) { return PatternText(text, decimals); });
  grid.SetColumnAlignment(column, CellAlignment::Right);
  FitColumn(grid, column);
}

void BandRows(StatGrid& grid, Colour first, Colour second) { grid.SetRowBands(first, second, 2); }

bool SortedDown(const BrowserState& state) { return state.SortDirection == kDescending; }

bool SortOnDoubleClick(Browser& browser, BrowserGrid& grid, int column) {
  if (column < 0 || column >= grid.grid.columns()) return false;
  if (!browser.platform.keyboard.ControlHeld()) return false;
  BrowserState& state = browser.state;
  if (column == state.SortColumn) {
    state.SortDirection = state.SortDirection == kDescending ? kAscending : kDescending;
  } else {
    state.SortColumn = static_cast<std::uint8_t>(column);
  }
  grid.sorted = {column, SortedDown(state) ? SortOrder::Descending : SortOrder::Ascending};
  grid.grid.SortRows(column, grid.sorted->order);
  return true;
}

}  // namespace dtb
