// The statistics sheet of the game in progress: three tables and the fields around them.
#pragma once

#include <string>

#include "base/field.h"
#include "base/stat_grid.h"
#include "base/text_cell.h"
#include "platform/picture.h"

namespace dtb {

// Columns of the two team tables. Batters (1 to 10) and pitchers (11 to 17) are two independent
// lists that share rows.
namespace stat_column {
inline constexpr int kBatter = 1;
inline constexpr int kStrikeouts = 2;
inline constexpr int kWalks = 3;
inline constexpr int kSingles = 4;
inline constexpr int kDoubles = 5;
inline constexpr int kTriples = 6;
inline constexpr int kHomeRuns = 7;
inline constexpr int kStolenBases = 8;
inline constexpr int kRunsBattedIn = 9;
inline constexpr int kAtBats = 10;
inline constexpr int kPitcher = 11;
inline constexpr int kPitcherStrikeouts = 12;
inline constexpr int kPitcherWalks = 13;
inline constexpr int kPitcherHits = 14;
inline constexpr int kPitcherHomeRuns = 15;
inline constexpr int kEarnedRuns = 16;
inline constexpr int kInningsPitched = 17;  // outs / 3 with two decimals: 6.33
inline constexpr int kPlayed = 18;          // hidden; "1": the batter of this row takes part
inline constexpr int kCount = 19;
}  // namespace stat_column

inline constexpr int kStatRows = 50;      // the header and 49 players
inline constexpr int kScoreRows = 3;      // the header, visitors, home team
inline constexpr int kScoreColumns = 24;  // the team, 20 innings, R, H, E
inline constexpr int kStarters = 9;

// A game comment has at most this many characters.
inline constexpr int kCommentLength = 110;

// The cell of innings pitched that a report settled for the time being; see game/innings.h.
struct ReportedInnings {
  int row = 0;          // of the side's table; 0: none
  std::string written;  // what the report wrote there
  std::string before;   // what stood there
  friend bool operator==(const ReportedInnings&, const ReportedInnings&) = default;
};

struct StatSheet {
  StatGrid grd_VisStats{kStatRows, stat_column::kCount};
  StatGrid grd_HomeStats{kStatRows, stat_column::kCount};
  StatGrid grd_BoxScore{kScoreRows, kScoreColumns};  // a copy of the board's line score
  Field<std::string> lbl_VisTeam{"Team"};            // "Team" until a team is loaded
  Field<std::string> lbl_HomeTeam{"Team"};
  Field<Picture> Picture3;  // logo of the visitors
  Field<Picture> Picture4;  // logo of the home team
  Field<std::string> tb_Comments;
  Field<std::string> ChosenDecisions;  // by the person, see record/chosen_decisions.h

  // The save.
  Field<bool> Command2_enabled{true};  // "SAVE TO DB" is in use: the game is not saved yet
  Field<std::string> tb_TimeStamp2;    // GameID of the last save
  Field<std::string> tb_TimeStamp;     // stamp in the name of the last report
  TextCell tb_VisWin;                  // "1" while the win of the visitors is recorded
  TextCell tb_VisLoss;
  TextCell tb_HomeWin;
  TextCell tb_HomeLoss;

  // The cell editor.
  Field<std::string> Text1;                  // the text being edited
  Field<bool> Text1_visible;                 // a cell is being edited
  Field<std::string> lbl_GridSelected{"0"};  // the editor's table: "V" or "H"
  int editedRow = 0;
  int editedColumn = 0;

  // What the last report settled.
  ReportedInnings VisReported;
  ReportedInnings HomeReported;

  friend bool operator==(const StatSheet&, const StatSheet&) = default;
};

// Sets headers, column widths, alignment and colours, and the totals to "0". Runs once, at start.
void SetUpSheet(StatSheet& sheet);

}  // namespace dtb
