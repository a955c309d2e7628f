// What the database browser, BrowserWindow, holds while it is open.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/field.h"
#include "base/stat_grid.h"

namespace dtb {

namespace browser_tab {
inline constexpr int kLineScores = 0;
inline constexpr int kBattingByGame = 1;
inline constexpr int kPitchingByGame = 2;
inline constexpr int kAggregateBatting = 3;
inline constexpr int kAggregatePitching = 4;
inline constexpr int kWinLoss = 5;
inline constexpr int kGameStats = 6;
inline constexpr int kTournament = 7;
inline constexpr int kSeason = 8;
}  // namespace browser_tab

struct SeasonFigures;
enum class Query : int;

// A grid of the browser. Its header cells are always centred, whatever the alignment of the column;
// its column 0 is empty and the window shows it as narrow as it likes. After each query the current
// cell is row 0, column 0: none.
struct BrowserGrid {
  StatGrid grid{1, 1};
  Field<bool> visible;  // from the first query on

  // The query that it shows, and what stood in the query's box. None: not a query's button.
  struct Shown {
    Query query;
    std::string box;
  };
  std::optional<Shown> shown = {};

  // By which column the person sorted it since that query. None: as the query gave it.
  struct Sorted {
    int column;
    SortOrder order;
  };
  std::optional<Sorted> sorted = {};
};

// A new one for each opening of the form: grids hidden, boxes empty.
struct BrowserState {
  Field<int> SSTab1{browser_tab::kLineScores};

  // "Linescores"
  BrowserGrid MSHFlexGrid1;      // two rows a game
  Field<std::string> Text9;      // GameID, or a part of it
  Field<std::string> lbl_Twice;  // which game stands there twice; "" for none
  std::string savedAgain;        // the GameID under which it was saved the second time

  // "Batting by game"
  BrowserGrid MSHFlexGrid2;
  Field<std::string> Text1;  // player
  Field<std::string> Text2;  // team
  Field<std::string> Text7;  // GameID

  // "Pitching by game"
  BrowserGrid MSHFlexGrid3;
  Field<std::string> Text3;  // player
  Field<std::string> Text4;  // team
  Field<std::string> Text8;  // GameID

  // "Aggregate Batting"
  BrowserGrid MSHFlexGrid4;
  Field<std::string> Text6;  // player
  Field<std::string> Text5;  // team

  // "Aggregate Pitching"
  BrowserGrid MSHFlexGrid5;
  Field<std::string> Text10;  // player
  Field<std::string> Text11;  // team

  // "Win/Loss"
  BrowserGrid MSHFlexGrid9;     // standings
  BrowserGrid MSHFlexGrid10;    // pairings
  Field<std::string> lbl_DEL2;  // the selected team or pairing

  // "Game Stats": one game
  BrowserGrid MSHFlexGrid6;   // visitors' batting
  BrowserGrid MSHFlexGrid7;   // visitors' pitching
  BrowserGrid MSHFlexGrid12;  // both lines of the score
  BrowserGrid MSHFlexGrid8;   // home team's batting
  BrowserGrid MSHFlexGrid11;  // home team's pitching

  // "Tournament"
  Field<std::string> tb_Team;  // the text to be placed
  std::array<Field<std::string>, 16> lbl_Team;
  std::array<Field<std::string>, 8> lbl_TeamRnd2;
  std::array<Field<std::string>, 4> lbl_TeamRnd3;
  std::array<Field<std::string>, 2> lbl_TeamRnd4;
  Field<std::string> lbl_Champ;

  // "Season"
  Field<std::shared_ptr<const SeasonFigures>> season;  // null: not read yet

  // One sort state for the four grids that can be sorted.
  std::uint8_t SortColumn = 0;
  std::uint8_t SortDirection = 0;  // 0 none, 1 ascending, 2 descending
};

// Tints of the games in MSHFlexGrid1, and the ink of what can be clicked there.
inline constexpr Colour kGameTint{204, 250, 255};
inline constexpr Colour kClickableBlue{0, 0, 255};

}  // namespace dtb
