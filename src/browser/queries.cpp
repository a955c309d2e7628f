#include "browser/queries.h"

#include <array>
#include <cstddef>
#include <optional>
#include <utility>

#include "browser/grid_format.h"
#include "database/saved_games.h"

namespace dtb {
namespace {

// What a query does to its grid beside filling it.
struct Layout {
  std::array<int, 2> leftAligned{};
  int firstFormatted = 1;  // columns that take a pattern
  int lastFormatted = 0;
  Decimals decimals = Decimals::Two;
  std::optional<Colour> firstTint = {};  // of line scores
};

constexpr int kIP = 7;
constexpr Layout kBattingRowsLayout{{1, 11}};
constexpr Layout kPitchingRowsLayout{{1, 8}, kIP, kIP};
constexpr Layout kStoredPitchingLayout{{1, 8}};
constexpr Layout kBattingTotalsLayout{{1, 2}, 12, 13, Decimals::Three};
constexpr Layout kPitchingTotalsLayout{{1, 2}, 8, 15};
constexpr Layout kAllLineScoresLayout{{1, 1}, 1, 0, {}, kWhite};
constexpr Layout kLineScoreLayout{{1, 1}, 1, 0, {}, kGameTint};
constexpr Layout kSumsLayout{{1, 1}};

constexpr const char* kBattingTotals =
    "SELECT Batter, Team, TAB, SI, DB, TR, HRun, BBs, SO, SBs, RBIs,"
    " (ifnull(SI, 0) + ifnull(DB, 0) + ifnull(TR, 0) + ifnull(HRun, 0)) * 1.0 / TAB AS BAvg,"
    " (ifnull(SI, 0) + ifnull(DB, 0) * 2 + ifnull(TR, 0) * 3 + ifnull(HRun, 0) * 4) * 1.0 / TAB"
    " AS SLG "
    "FROM (SELECT Batter, Team, SUM(AB) AS TAB, SUM([1B]) AS SI, SUM([2B]) AS DB, SUM([3B]) AS TR,"
    " SUM(HR) AS HRun, SUM(BB) AS BBs, SUM(K) AS SO, SUM(SB) AS SBs, SUM(RBI) AS RBIs"
    " FROM Batting";
constexpr const char* kPitchingTotals =
    "SELECT Pitcher, Team, Ks, BBs, H, HRs, R, TIP, Ks / (TIP / 9.0) AS [Ks/9],"
    " BBs / (TIP / 9.0) AS [BBs/9], H / (TIP / 9.0) AS [H/9], HRs / (TIP / 9.0) AS [HRs/9],"
    " Ks * 1.0 / BBs AS [K/BB], ifnull(R, 0) * 1.0 / TIP * 9 AS ERA,"
    " (ifnull(BBs, 0) + ifnull(H, 0)) * 1.0 / TIP AS WHIP "
    "FROM (SELECT Pitcher, Team, SUM(K) AS Ks, SUM(BB) AS BBs, SUM(Hits) AS H, SUM(HR) AS HRs,"
    " SUM(Runs) AS R, round(SUM(IP), 6) AS TIP"
    " FROM Pitching";

// Names are put in the order of CompareNames, and equal ones in that of their bytes.
constexpr const char* kByTeamAndBatter =
    " GROUP BY Team, Batter) ORDER BY Team COLLATE NAMES, Team, Batter COLLATE NAMES, Batter";
constexpr const char* kByTeamAndPitcher =
    " GROUP BY Team, Pitcher) ORDER BY Team COLLATE NAMES, Team, Pitcher COLLATE NAMES, Pitcher";
// Rows of one game stay as they were stored.
constexpr const char* kNewestFirst = " ORDER BY GameID DESC, rowid";
constexpr const char* kOldestFirst = " ORDER BY GameID, rowid";
constexpr const char* kAsStored = " ORDER BY rowid";
constexpr const char* kGamesNewestFirst = " ORDER BY GameID DESC, Host, rowid";
// The same where a GameID stands for several games: the two lines of each stay together.
constexpr const char* kPairsNewestFirst =
    " ORDER BY GameID DESC, row_number() OVER (PARTITION BY GameID, Host ORDER BY rowid), Host,"
    " rowid";

constexpr const char* kBattingRows = "SELECT * FROM Batting";
constexpr const char* kPitchingRows = "SELECT * FROM Pitching";
constexpr const char* kLineScores = "SELECT * FROM BoxScores";
constexpr const char* kStandings =
    "SELECT Team, SUM(Win) AS W, SUM(Loss) AS L FROM WinLoss GROUP BY Team"
    " ORDER BY SUM(Win) DESC, Team COLLATE NAMES, Team";
constexpr const char* kPairings =
    "SELECT Matchup, SUM(Tally) AS Games FROM Matchups GROUP BY Matchup"
    " ORDER BY Matchup COLLATE NAMES, Matchup";

// Where the text of the box stands in the column: at its start, anywhere, or at the start of a word
// of it, so that a surname finds its player.
enum class Match { Start, Part, Word };

struct QueryTexts {
  const char* select;
  const char* searched;  // column; null: all rows
  Match match;
  const char* tail;
  const Layout& layout;
};

using S = BrowserState;

constexpr std::size_t kQueries = 16;

constexpr std::array<QueryButton, kQueries> kButtons{{
    {Query::Command1, "Command1", "Data by team", true, &S::Text4, &S::MSHFlexGrid3},
    {Query::Command2, "Command2", "Data by player", true, &S::Text3, &S::MSHFlexGrid3},
    {Query::Command3, "Command3", "Data by team", true, &S::Text2, &S::MSHFlexGrid2},
    {Query::Command4, "Command4", "Get all LineScores", true, nullptr, &S::MSHFlexGrid1},
    {Query::Command5, "Command5", "Data by player", true, &S::Text1, &S::MSHFlexGrid2},
    {Query::Command6, "Command6", "Batter statistics aggregated", false, nullptr, &S::MSHFlexGrid4},
    {Query::Command7, "Command7", "Batting data by player", true, &S::Text6, &S::MSHFlexGrid4},
    {Query::Command8, "Command8", "Batting data by team", true, &S::Text5, &S::MSHFlexGrid4},
    {Query::Command9, "Command9", "Data by GameID", true, &S::Text7, &S::MSHFlexGrid2},
    {Query::Command10, "Command10", "Data by GameID", true, &S::Text8, &S::MSHFlexGrid3},
    {Query::Command11, "Command11", "LineScore by GameID", true, &S::Text9, &S::MSHFlexGrid1},
    {Query::Command12, "Command12", "Pitching data by team", true, &S::Text11, &S::MSHFlexGrid5},
    {Query::Command13, "Command13", "Pitching data by player", true, &S::Text10, &S::MSHFlexGrid5},
    {Query::Command14, "Command14", "Pitching stats aggregated", false, nullptr, &S::MSHFlexGrid5},
    {Query::Command30, "Command30", "GET WinLoss", false, nullptr, &S::MSHFlexGrid9},
    {Query::Command34, "Command34", "GET Matchups", false, nullptr, &S::MSHFlexGrid10},
}};

// In the order of the buttons.
constexpr std::array<QueryTexts, kQueries> kTexts{{
    {kPitchingRows, "Team", Match::Start, kOldestFirst, kStoredPitchingLayout},
    {kPitchingRows, "Pitcher", Match::Word, kNewestFirst, kPitchingRowsLayout},
    {kBattingRows, "Team", Match::Start, kOldestFirst, kBattingRowsLayout},
    {kLineScores, nullptr, {}, kGamesNewestFirst, kAllLineScoresLayout},
    {kBattingRows, "Batter", Match::Word, kNewestFirst, kBattingRowsLayout},
    {kBattingTotals, nullptr, {}, kByTeamAndBatter, kBattingTotalsLayout},
    {kBattingTotals, "Batter", Match::Word, kByTeamAndBatter, kBattingTotalsLayout},
    {kBattingTotals, "Team", Match::Start, kByTeamAndBatter, kBattingTotalsLayout},
    {kBattingRows, "GameID", Match::Part, kAsStored, kBattingRowsLayout},
    {kPitchingRows, "GameID", Match::Part, kAsStored, kPitchingRowsLayout},
    {kLineScores, "GameID", Match::Part, kAsStored, kLineScoreLayout},
    {kPitchingTotals, "Team", Match::Start, kByTeamAndPitcher, kPitchingTotalsLayout},
    {kPitchingTotals, "Pitcher", Match::Word, kByTeamAndPitcher, kPitchingTotalsLayout},
    {kPitchingTotals, nullptr, {}, kByTeamAndPitcher, kPitchingTotalsLayout},
    {kStandings, nullptr, {}, "", kSumsLayout},
    {kPairings, nullptr, {}, "", kSumsLayout},
}};

Statement StatementOf(const QueryTexts& texts, const std::string& box, std::stop_token stop) {
  if (texts.searched == nullptr) {
    return {std::string(texts.select) + texts.tail, {}, std::move(stop)};
  }
  const std::string column = texts.searched;
  std::string found = "finds(?1, " + column + ")";
  // A blank before the name makes its first word one like the others.
  if (texts.match == Match::Word) found = "finds(?1, ' ' || " + column + ")";
  const char* before = texts.match == Match::Part ? "%" : texts.match == Match::Word ? "% " : "";
  return {std::string(texts.select) + " WHERE " + found + texts.tail,
          {before + box + "%"},
          std::move(stop)};
}

// More than two lines with one GameID, in a list that has them side by side.
bool HasGamesOfOneID(const StatGrid& lineScores) {
  constexpr int kLines = 2;
  for (int row = 1; row + kLines < lineScores.rows(); ++row) {
    if (lineScores.Text(row, line_score_column::kGameID) ==
        lineScores.Text(row + kLines, line_score_column::kGameID)) {
      return true;
    }
  }
  return false;
}

}  // namespace

std::span<const QueryButton> QueryButtons() { return kButtons; }

StatGrid ReadQuery(Database& database, Query query, const std::string& box, std::stop_token stop) {
  const QueryTexts& texts = kTexts.at(static_cast<std::size_t>(query));
  const Layout& layout = texts.layout;
  StatGrid grid = ReadGrid(database, StatementOf(texts, box, stop), layout.leftAligned);
  if (query == Query::Command4 && HasGamesOfOneID(grid)) {
    grid = ReadGrid(database, {std::string(texts.select) + kPairsNewestFirst, {}, std::move(stop)},
                    layout.leftAligned);
  }
  for (int column = layout.firstFormatted; column <= layout.lastFormatted; ++column) {
    FormatColumn(grid, column, layout.decimals);
  }
  if (layout.firstTint) {
    grid.SetColumnWidth(line_score_column::kHost, 0);
    BandRows(grid, *layout.firstTint, *layout.firstTint == kWhite ? kGameTint : kWhite);
  }
  return grid;
}

void ShowQuery(Browser& browser, Query query, const std::string& box, StatGrid&& contents) {
  BrowserGrid& grid = browser.state.*kButtons.at(static_cast<std::size_t>(query)).grid;
  ShowGrid(grid, std::move(contents));
  grid.shown = {query, box};
  grid.sorted.reset();
}

void RunQuery(Browser& browser, Query query) {
  const QueryButton& button = kButtons.at(static_cast<std::size_t>(query));
  const std::string box = button.box == nullptr ? "" : (browser.state.*button.box).value();
  try {
    ShowQuery(browser, query, box, ReadQuery(browser.platform.database, query, box));
  } catch (const ProgramError& failure) {
    TellQueryFailure(browser, failure.what());
  }
}

void TellQueryFailure(Browser& browser, const std::string& description) {
  browser.platform.boxes.Show(description, BoxIcon::Exclamation, kBrowserTitle);
}

}  // namespace dtb
