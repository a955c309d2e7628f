#include "sheet/sheet_plan.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <utility>

#include "base/program_error.h"
#include "platform/workbook.h"

namespace dtb {
namespace {

// A double keeps so many digits for certain.
constexpr std::size_t kCertainDigits = 15;
// The progress hears of every so many rows: some milliseconds of work.
constexpr int kRowsPerReport = 512;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// What a column of the sheet shows in the rows of one band.
struct Source {
  const GridBlock* block = nullptr;  // none: an empty cell
  int gridColumn = 0;
  bool text = false;
  std::optional<std::size_t> zone = {};
};

// Rows of the sheet fall into bands within which each column has one source.
class SheetWriter {
 public:
  SheetWriter(WorkbookWriter& writer, const SheetPlan& plan) : writer_(writer), plan_(plan) {
    for (const GridBlock& block : plan.blocks) {
      AddBand(block.anchorRow, block.anchorRow + block.grid.rows());
      columns_ = std::max(columns_, block.anchorColumn + static_cast<int>(block.columns.size()));
    }
    for (const LookZone& zone : plan.zones) {
      AddBand(zone.firstRow, zone.lastRow + 1);
      columns_ = std::max(columns_, zone.lastColumn + 1);
    }
    std::ranges::sort(bandStarts_);
    looks_.resize((plan.zones.size() + 1) * kFormats);
  }

  [[nodiscard]] int rows() const { return bandStarts_.empty() ? 0 : bandStarts_.back(); }

  void WriteRow(int row) {
    if (std::ranges::binary_search(bandStarts_, row)) FindSources(row);
    for (int column = 0; column < columns_; ++column) WriteCell(row, column);
  }

 private:
  // Each zone, and the cells outside all zones, have a look for each format of a figure.
  static constexpr std::size_t kFormats = 2 * (kCertainDigits + 1);

  void AddBand(int firstRow, int end) {
    bandStarts_.push_back(firstRow);
    bandStarts_.push_back(end);
  }

  void FindSources(int row) {
    sources_.assign(static_cast<std::size_t>(columns_), {});
    for (const GridBlock& block : plan_.blocks) {
      const int gridRow = row - block.anchorRow;
      if (gridRow < 0 || gridRow >= block.grid.rows()) continue;
      for (std::size_t i = 0; i < block.columns.size(); ++i) {
        const int gridColumn = block.columns[i];
        const bool text =
            std::ranges::find(block.textColumns, gridColumn) != block.textColumns.end();
        sources_[static_cast<std::size_t>(block.anchorColumn) + i] = {&block, gridColumn, text};
      }
    }
    for (std::size_t i = 0; i < plan_.zones.size(); ++i) {
      const LookZone& zone = plan_.zones[i];
      if (row < zone.firstRow || row > zone.lastRow) continue;
      for (int column = zone.firstColumn; column <= zone.lastColumn; ++column) {
        sources_[static_cast<std::size_t>(column)].zone = i;
      }
    }
  }

  CellLookId LookOf(const Source& source, const Figure& figure) {
    const std::size_t place = source.zone ? *source.zone + 1 : 0;
    auto& id = looks_[place * kFormats + 2 * static_cast<std::size_t>(figure.decimals) +
                      (figure.startsWithPoint ? 1 : 0)];
    if (!id) {
      CellLook look = source.zone ? plan_.zones[*source.zone].look : CellLook{};
      look.numberFormat = figure.Format();
      id = writer_.AddLook(look);
    }
    return *id;
  }

  void WriteCell(int row, int column) {
    const Source& source = sources_[static_cast<std::size_t>(column)];
    const int gridRow = source.block == nullptr ? 0 : row - source.block->anchorRow;
    const std::string_view text = source.block == nullptr
                                      ? std::string_view()
                                      : source.block->grid.Text(gridRow, source.gridColumn);
    if (text.empty()) {
      if (source.zone) writer_.Blank(row, column, LookOf(source, {}));
      return;
    }
    const auto figure = source.text || gridRow == 0 ? std::nullopt : FigureOf(text);
    if (figure) {
      writer_.Number(row, column, figure->number, LookOf(source, *figure));
    } else {
      writer_.Text(row, column, text, LookOf(source, {}));
    }
  }

  WorkbookWriter& writer_;
  const SheetPlan& plan_;
  std::vector<int> bandStarts_;  // and the end of the last band
  std::vector<Source> sources_;  // of the band being written
  std::vector<std::optional<CellLookId>> looks_;
  int columns_ = 0;
};

}  // namespace

SheetHead HeadOf(const std::string& name, std::initializer_list<ColumnWidths> widths) {
  SheetHead head{name, {}, kExportRowHeight};
  for (const ColumnWidths& width : widths) {
    auto& all = head.columnWidths;
    all.resize(std::max(all.size(), static_cast<std::size_t>(width.last) + 1));
    std::fill(all.begin() + width.first, all.begin() + width.last + 1, width.characters);
  }
  return head;
}

std::vector<int> AllColumns(const StatGrid& grid) {
  std::vector<int> columns(static_cast<std::size_t>(grid.columns()));
  std::iota(columns.begin(), columns.end(), 0);
  return columns;
}

std::optional<Figure> FigureOf(std::string_view text) {
  const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::string_view whole = digits.substr(0, point);
  const std::string_view decimals = digits.substr(std::min(point + 1, digits.size()));
  const bool leadingZero = whole.size() > 1 && whole.front() == '0';
  const bool endsInPoint = point + 1 == digits.size();
  if (leadingZero || endsInPoint || whole.size() + decimals.size() == 0 ||
      whole.size() + decimals.size() > kCertainDigits || !std::ranges::all_of(whole, IsDigit) ||
      !std::ranges::all_of(decimals, IsDigit)) {
    return std::nullopt;
  }
  Figure figure;
  std::from_chars(text.data(), text.data() + text.size(), figure.number);
  if (text.starts_with('-') && figure.number == 0) return std::nullopt;
  figure.decimals = static_cast<int>(decimals.size());
  figure.startsWithPoint = whole.empty();
  return figure;
}

std::string Figure::Format() const {
  if (decimals == 0) return "";
  return std::string(startsWithPoint ? "." : "0.").append(static_cast<std::size_t>(decimals), '0');
}

int RowsOf(const SheetPlan& plan) {
  int rows = 0;
  for (const GridBlock& block : plan.blocks) {
    rows = std::max(rows, block.anchorRow + block.grid.rows());
  }
  return rows;
}

bool WriteSheet(WorkbookWriter& writer, const SheetPlan& plan, const ExportProgress& progress) {
  if (RowsOf(plan) > kMostSheetRows) {
    throw ProgramError(error_number::kInvalidCall,
                       "\"" + plan.head.name + "\" has " + std::to_string(RowsOf(plan)) +
                           " rows, and a worksheet takes " + std::to_string(kMostSheetRows) +
                           ". Narrow the table with a search first.");
  }
  writer.BeginSheet(plan.head);
  SheetWriter sheet(writer, plan);
  for (int row = 0; row < sheet.rows(); ++row) {
    if (row % kRowsPerReport == 0 && !progress(static_cast<double>(row) / sheet.rows())) {
      return false;
    }
    sheet.WriteRow(row);
  }
  return true;
}

std::string GridText(const StatGrid& grid, int columns, std::string_view lineEnd) {
  std::string text;
  for (int row = 0; row < grid.rows(); ++row) {
    if (row > 0) text += lineEnd;
    for (int column = 0; column < columns; ++column) {
      if (column > 0) text += '\t';
      if (column < grid.columns()) text += grid.Text(row, column);
    }
  }
  return text;
}

}  // namespace dtb
