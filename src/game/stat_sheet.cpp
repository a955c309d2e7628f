#include "game/stat_sheet.h"

#include <array>

#include "game/board_state.h"

namespace dtb {
namespace {

// The sheet's own colours for the rows of its two tables.
constexpr Colour kVisitorsEvenRow{255, 255, 192};
constexpr Colour kHomeEvenRow{255, 255, 255};
constexpr Colour kOddRow{224, 224, 224};

void SetUpTeamTable(StatGrid& grid, std::string_view batter, std::string_view pitcher,
                    Colour evenRows) {
  using namespace stat_column;
  const std::array<std::string_view, kCount> headers{"",   batter, "K",   "BB", "1B",    "2B", "3B",
                                                     "HR", "SB",   "RBI", "AB", pitcher, "K",  "BB",
                                                     "H",  "HR",   "ER",  "IP", ""};
  constexpr std::array<int, kCount> widths{0,   1800, 450, 450, 450, 450, 450, 450, 450, 450,
                                           450, 2000, 450, 450, 450, 450, 450, 600, 0};
  for (int column = 0; column < kCount; ++column) {
    grid.SetText(0, column, headers.at(column));
    grid.SetColumnWidth(column, widths.at(column));
    const bool name = column == 0 || column == kBatter || column == kPitcher;
    if (!name) grid.SetColumnAlignment(column, CellAlignment::Centred);
  }
  grid.SetRowColours(evenRows, kOddRow);
}

void SetUpBoxScore(StatSheet& sheet) {
  StatGrid& grid = sheet.grd_BoxScore;
  constexpr std::array<std::string_view, 3> totals{"R", "H", "E"};
  grid.SetColumnWidth(0, 1500);
  grid.SetText(1, 0, sheet.lbl_VisTeam.value());
  grid.SetText(2, 0, sheet.lbl_HomeTeam.value());
  for (int inning = 1; inning <= kInnings; ++inning) {
    grid.SetText(0, inning, DecimalText(inning));
    // Innings beyond the ninth open when they are reached.
    grid.SetColumnWidth(inning, inning <= 9 ? 350 : 0);
    grid.SetColumnAlignment(inning, CellAlignment::Centred);
  }
  for (int total = 0; total < 3; ++total) {
    const int column = kInnings + 1 + total;
    grid.SetText(0, column, totals.at(total));
    grid.SetColumnWidth(column, 400);
    grid.SetColumnAlignment(column, CellAlignment::Centred);
    grid.SetText(1, column, "0");
    grid.SetText(2, column, "0");
  }
}

}  // namespace

void SetUpSheet(StatSheet& sheet) {
  SetUpTeamTable(sheet.grd_VisStats, "VIS_Player", "VIS_Pitcher", kVisitorsEvenRow);
  SetUpTeamTable(sheet.grd_HomeStats, "HOME_Player", "HOME_Pitcher", kHomeEvenRow);
  SetUpBoxScore(sheet);
}

}  // namespace dtb
