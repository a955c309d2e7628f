#include "sheet/game_workbook.h"

#include "base/file_names.h"
#include "base/program_error.h"
#include "base/time_stamp.h"
#include "platform/trapped.h"
#include "sheet/cell_edit.h"
#include "sheet/workbook_export.h"

namespace dtb {
namespace {

constexpr int kBoxScoreColumn = 19;  // T

bool HasText(const StatGrid& grid, int row) {
  for (int column = 0; column < grid.columns(); ++column) {
    if (!grid.Text(row, column).empty()) return true;
  }
  return false;
}

// The heading of the home table stands where the visitors' last row would.
void TellRowThatGaveWay(Board& board) {
  const StatGrid& visitors = board.sheet.grd_VisStats;
  if (!HasText(visitors, visitors.rows() - 1)) return;
  board.platform.boxes.Show(
      "The heading of the home team's table stands in the row of the visitors' last player, "
      "who is therefore not in the workbook.",
      BoxIcon::Warning);
}

std::string NameOf(const Board& board) {
  return SafeNamePart(board.sheet.lbl_VisTeam.value()) + "_at_" +
         SafeNamePart(board.sheet.lbl_HomeTeam.value()) + "_" +
         MakeStamp(board.platform.clock.Now());
}

}  // namespace

SheetPlan GameSheet(const StatSheet& sheet) {
  const std::vector<int> names{stat_column::kBatter, stat_column::kPitcher};
  const StatGrid& visitors = sheet.grd_VisStats;
  return {HeadOf("Sheet1", {{0, 0, 2},      // A: the hidden column 0
                            {1, 1, 15},     // B: batters
                            {2, 10, 4},     // C to K: their counters
                            {11, 11, 15},   // L: pitchers
                            {12, 17, 4},    // M to R: their counters
                            {18, 18, 2},    // S: the mark of who takes part
                            {19, 19, 7},    // T: teams
                            {20, 39, 2},    // U to AN: innings
                            {40, 42, 3}}),  // AO to AQ: totals
          {{visitors, AllColumns(visitors), 0, 0, names},
           {sheet.grd_HomeStats, AllColumns(sheet.grd_HomeStats), visitors.rows() - 1, 0, names},
           {sheet.grd_BoxScore, AllColumns(sheet.grd_BoxScore), 0, kBoxScoreColumn, {0}}}};
}

bool ExportGameToSpreadsheet(Board& board) {
  bool opened = false;
  Trapped(board.platform.boxes, [&] {
    if (TellFigureBeingTyped(board)) return;
    if (!board.platform.spreadsheets.Installed()) {
      ReportError(board.platform.boxes, error_number::kNoComponent, kNoSpreadsheetProgram);
      if (!WantsWorkbookAllTheSame(board.platform)) return;
    }
    WorkbookExport workbook(board.platform, NameOf(board), {});
    workbook.writer().SetTypeSize(kExportTypeSize);
    if (!workbook.Add(GameSheet(board.sheet), 1) || !workbook.Finish()) return;
    const StatGrid& score = board.sheet.grd_BoxScore;
    board.platform.clipboard.SetText(GridText(score, score.columns(), "\r"));
    TellRowThatGaveWay(board);
    opened = OpenWorkbook(board.platform, workbook.file());
  });
  return opened;
}

}  // namespace dtb
