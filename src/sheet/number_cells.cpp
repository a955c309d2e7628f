#include "sheet/number_cells.h"

#include <cmath>

namespace dtb {
namespace {

// The database takes numbers up to this size.
constexpr double kLargest = 1e15;

bool IsNumber(std::string_view text) {
  const auto number = WholeNumberOf(text);
  return number && std::abs(*number) <= kLargest;
}

void AddCells(std::vector<MisplacedText>& found, const StatGrid& grid, MisplacedText place,
              int firstColumn, int lastColumn) {
  for (place.column = firstColumn; place.column <= lastColumn; ++place.column) {
    place.text = grid.Text(place.row, place.column);
    if (!place.text.empty() && !IsNumber(place.text)) found.push_back(place);
  }
}

}  // namespace

int RowOfPresentPitcher(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  const auto own = fields.grid.FindRow(stat_column::kPitcher, fields.pitcher.value());
  if (own) return *own;
  return fields.grid.FindRow(stat_column::kPitcher, "").value_or(0);
}

std::vector<MisplacedText> TextWhereNumbersBelong(Board& board, NumberRows rows) {
  using namespace stat_column;
  std::vector<MisplacedText> found;
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board, side);
    const StatGrid& grid = fields.grid;
    const int pitcher = fields.pitcher.value().empty() ? 0 : RowOfPresentPitcher(board, side);
    for (int row = 1; row < grid.rows(); ++row) {
      const bool batter = rows == NumberRows::Saved ? grid.Text(row, kPlayed) == "1"
                                                    : !grid.Text(row, kBatter).empty();
      const MisplacedText place{side, false, row, 0, {}};
      if (batter) AddCells(found, grid, place, kStrikeouts, kAtBats);
      if (row == pitcher || !grid.Text(row, kPitcher).empty()) {
        AddCells(found, grid, place, kPitcherStrikeouts, kInningsPitched);
      }
    }
    AddCells(found, board.sheet.grd_BoxScore, {side, true, fields.boxScoreRow, 0, {}},
             kTotalRuns + 1, kTotalErrors + 1);
  }
  return found;
}

std::string PlaceOf(Board& board, const MisplacedText& misplaced) {
  const SideFields fields = SideOf(board, misplaced.side);
  const StatGrid& grid = misplaced.lineScore ? board.sheet.grd_BoxScore : fields.grid;
  const int owner =
      misplaced.column < stat_column::kPitcher ? stat_column::kBatter : stat_column::kPitcher;
  std::string place = fields.sheetTeam.value();
  if (misplaced.lineScore) {
    place += ", line score";
  } else {
    place.append(", row ").append(std::to_string(misplaced.row)).append(" (");
    place.append(grid.Text(misplaced.row, owner)).append(")");
  }
  return place.append(", column ").append(grid.Text(0, misplaced.column));
}

}  // namespace dtb
