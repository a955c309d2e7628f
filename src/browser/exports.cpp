#include "browser/exports.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string>
#include <string_view>

#include "base/program_error.h"
#include "base/time_stamp.h"
#include "database/rows.h"
#include "database/saved_tables.h"
#include "platform/database.h"
#include "sheet/report_files.h"
#include "sheet/workbook_export.h"

namespace dtb {
namespace {

constexpr int kPairingColumns = 4;

// The ranges that are dressed are the same on all sheets: A1:AQ45 with lines and ground, on to
// row 2500 with lines in their colour alone.
constexpr int kLastColumn = 42;  // AQ
constexpr int kLastFramedRow = 44;
constexpr int kLastLinedRow = 2499;
// Number 37 of the spreadsheet's palette of 56 colours.
constexpr Colour kPaleBlue{153, 204, 255};
// White (the theme's first colour), darkened by half a hundredth: 255 x 0.995.
constexpr Colour kFaintGrey{254, 254, 254};

// Bold: columns B to R and U to AQ of the first row.
std::vector<LookZone> SheetFormat() {
  const CellLook framed{CellBorder::Thin, kPaleBlue, kFaintGrey};
  CellLook bold = framed;
  bold.bold = true;
  constexpr int kFirstBold = 1;   // B
  constexpr int kLastBold = 17;   // R
  constexpr int kBoldAgain = 20;  // U
  return {
      {0, 0, 0, kFirstBold - 1, framed},
      {0, 0, kFirstBold, kLastBold, bold},
      {0, 0, kLastBold + 1, kBoldAgain - 1, framed},
      {0, 0, kBoldAgain, kLastColumn, bold},
      {1, kLastFramedRow, 0, kLastColumn, framed},
      {kLastFramedRow + 1, kLastLinedRow, 0, kLastColumn, {CellBorder::Hair, kPaleBlue}},
  };
}

// The columns that hold names and games, so texts even where they are all digits.
std::vector<int> NameColumns(const StatGrid& grid) {
  constexpr std::array<std::string_view, 15> kHeaders{
      "Batter",   "Pitcher", "Team",  "Matchup", "Host",  "GameID",      "OwnID", "GameDate",
      "Opponent", "Runner",  "First", "Second",  "Third", "ArchiveGame", "Park"};
  std::vector<int> columns;
  for (int column = 0; column < grid.columns(); ++column) {
    if (std::ranges::find(kHeaders, grid.Text(0, column)) != kHeaders.end()) {
      columns.push_back(column);
    }
  }
  return columns;
}

// The first so many columns of the grid, from 0 on.
GridBlock Block(const StatGrid& grid, int columns, int anchorColumn = 0) {
  std::vector<int> taken = AllColumns(grid);
  taken.resize(static_cast<std::size_t>(std::min(columns, grid.columns())));
  return {grid, std::move(taken), 0, anchorColumn, NameColumns(grid)};
}

GridBlock Block(const BrowserGrid& shown) { return Block(shown.grid, shown.grid.columns()); }

SheetPlan PlanOf(const char* name, std::vector<GridBlock> blocks,
                 std::initializer_list<ColumnWidths> widths) {
  return {HeadOf(name, widths), std::move(blocks), SheetFormat()};
}

// Takes out columns of extra innings without a figure in the row looked at. Each look is one row
// further down, at the column that stands in place of the tenth inning by then.
void RemoveEmptyExtraInnings(SheetPlan& plan) {
  constexpr int kTenthInning = 11;  // column L
  constexpr int kFirstLook = 1;     // the sheet's second row
  constexpr int kLastLook = 11;
  std::vector<int>& columns = plan.blocks.front().columns;
  const StatGrid& grid = plan.blocks.front().grid;
  auto& widths = plan.head.columnWidths;
  for (int row = kFirstLook; row <= kLastLook; ++row) {
    if (static_cast<int>(columns.size()) <= kTenthInning) return;
    if (row < grid.rows() && !grid.Text(row, columns[kTenthInning]).empty()) continue;
    columns.erase(columns.begin() + kTenthInning);
    widths.erase(widths.begin() + kTenthInning);
  }
}

// So many shares of the whole as the sheet has rows of it.
double PartOf(const SheetPlan& plan, const std::vector<SheetPlan>& all) {
  double rows = 0;
  for (const SheetPlan& each : all) rows += RowsOf(each);
  return RowsOf(plan) / rows;
}

// Rows of all nine tables.
std::vector<double> CountRows(Database& database) {
  std::string query = "SELECT ";
  for (const TableColumns& columns : AllTables()) {
    query += (query.back() == ' ' ? "" : ", ");
    query += "(SELECT count(*) FROM " + columns.table + ")";
  }
  std::vector<double> rows;
  ForEachRow(database, {query}, [&rows](std::span<const DatabaseValue> counts) {
    for (const DatabaseValue& count : counts) rows.push_back(NumberIn(count));
  });
  return rows;
}

// One table, on as many sheets as it needs.
bool AddTable(WorkbookExport& workbook, Database& database, const std::string& table, double part) {
  constexpr int kRowsBelowHeader = kMostSheetRows - 1;
  int first = 0;
  for (int sheet = 1;; ++sheet, first += kRowsBelowHeader) {
    const StatGrid rows =
        TextsOf(database, {"SELECT * FROM " + table + " ORDER BY rowid LIMIT " +
                           std::to_string(kRowsBelowHeader) + " OFFSET " + std::to_string(first)});
    if (sheet > 1 && rows.rows() == 1) return true;
    std::vector<int> columns = AllColumns(rows);
    columns.erase(columns.begin());
    const std::string name = sheet == 1 ? table : table + " " + std::to_string(sheet);
    if (!workbook.Add({{name}, {{rows, std::move(columns), 0, 0, NameColumns(rows)}}}, part)) {
      return false;
    }
    if (rows.rows() <= kRowsBelowHeader) return true;
    part = 0;
  }
}

void TellFailure(Browser& browser, const std::string& description) {
  browser.platform.boxes.Show("Nothing was exported. " + description, BoxIcon::Exclamation,
                              kBrowserTitle);
}

}  // namespace

std::vector<SheetPlan> GridSheets(const BrowserState& state) {
  constexpr int kPitchingColumns = 10;
  constexpr int kPairingsAt = 4;  // E
  std::vector<SheetPlan> sheets;
  sheets.push_back(PlanOf(
      "WinLossMatchups",
      {Block(state.MSHFlexGrid9), Block(state.MSHFlexGrid10.grid, kPairingColumns, kPairingsAt)},
      {{2, 3, 4}, {5, 5, 22}, {6, 6, 6}}));
  sheets.push_back(PlanOf("AggregatePitching", {Block(state.MSHFlexGrid5)},
                          {{1, 1, 20}, {3, 13, 5}, {14, 15, 6}}));
  sheets.push_back(
      PlanOf("AggregateBatting", {Block(state.MSHFlexGrid4)}, {{1, 1, 20}, {2, 2, 9}, {3, 13, 5}}));
  sheets.push_back(PlanOf("PitchingDataByGame", {Block(state.MSHFlexGrid3.grid, kPitchingColumns)},
                          {{1, 1, 20}, {2, 10, 5}, {8, 8, 9}, {9, 9, 13}}));
  sheets.push_back(PlanOf("BattingDataByGame", {Block(state.MSHFlexGrid2)},
                          {{1, 1, 20}, {2, 10, 4}, {12, 12, 13}}));
  sheets.push_back(
      PlanOf("LineScores", {Block(state.MSHFlexGrid1)}, {{2, 21, 3}, {22, 24, 5}, {26, 26, 12}}));
  RemoveEmptyExtraInnings(sheets.back());
  return sheets;
}

std::optional<std::filesystem::path> ExportGrids(Browser& browser, const ExportProgress& progress) {
  Platform& platform = browser.platform;
  const bool installed = platform.spreadsheets.Installed();
  if (!installed) platform.boxes.Show(kNoSpreadsheetProgram, BoxIcon::None, kBrowserTitle);
  try {
    if (!installed && !WantsWorkbookAllTheSame(platform, kBrowserTitle)) return std::nullopt;
    WorkbookExport workbook(platform, "DTB_DataGrids_" + MakeStamp(platform.clock.Now()), progress);
    workbook.writer().SetTypeSize(kExportTypeSize);
    const std::vector<SheetPlan> sheets = GridSheets(browser.state);
    for (const SheetPlan& sheet : sheets) {
      if (!workbook.Add(sheet, PartOf(sheet, sheets))) return std::nullopt;
    }
    if (!workbook.Finish()) return std::nullopt;
    platform.clipboard.SetText(GridText(browser.state.MSHFlexGrid10.grid, kPairingColumns, "\r\n"));
    if (installed) return workbook.file();
    OpenWorkbook(platform, workbook.file(), kBrowserTitle);
    return std::nullopt;
  } catch (const ProgramError& failure) {
    TellFailure(browser, failure.what());
    return std::nullopt;
  }
}

void ExportTables(Browser& browser, const ExportProgress& progress) {
  Platform& platform = browser.platform;
  try {
    const std::vector<double> counts = CountRows(platform.database);
    const double all = std::max(1.0, std::accumulate(counts.begin(), counts.end(), 0.0));
    WorkbookExport workbook(platform, "DTB_MSAccess_" + MakeStamp(platform.clock.Now()), progress);
    for (std::size_t i = 0; i < counts.size(); ++i) {
      // Games without plays leave the tables of the plays empty.
      if (i >= SavedTables().size() && counts[i] == 0) continue;
      const std::string& table = AllTables()[i].table;
      if (!AddTable(workbook, platform.database, table, counts[i] / all)) return;
    }
    if (!workbook.Finish()) return;
    TellWhereItLies(platform, "MS Access database tables have been exported", workbook.file(),
                    kBrowserTitle);
  } catch (const ProgramError& failure) {
    TellFailure(browser, failure.what());
  }
}

}  // namespace dtb
