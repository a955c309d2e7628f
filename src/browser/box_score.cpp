#include "browser/box_score.h"

#include <array>
#include <string>
#include <utility>

#include "browser/grid_format.h"
#include "browser/queries.h"
#include "database/saved_games.h"

namespace dtb {
namespace {

using namespace line_score_column;

constexpr std::array kNameColumn{1};
constexpr std::array kTeamAndGame{kTeam, kGameID};

// Columns of the players' grids that say what is known anyway: team and GameID.
struct Players {
  const char* table;
  int teamColumn;
};
constexpr Players kBatting{"Batting", 11};
constexpr Players kPitching{"Pitching", 8};

// The pattern of all texts that hold this one.
std::string Containing(const std::string& text) {
  return std::string("%").append(text).append("%");
}

void LoadPlayers(Browser& browser, BrowserGrid& grid, const Players& players,
                 const std::string& team) {
  StatGrid rows = ReadGrid(browser.platform.database,
                           {std::string("SELECT * FROM ")
                                .append(players.table)
                                .append(" WHERE GameID LIKE ?1 AND Team = ?2 ORDER BY rowid"),
                            {Containing(browser.state.Text9.value()), team}},
                           kNameColumn);
  rows.SetColumnWidth(players.teamColumn, 0);
  rows.SetColumnWidth(players.teamColumn + 1, 0);
  ShowGrid(grid, std::move(rows));
}

// Games of one GameID with a team in common: nothing says whose the players' rows are.
void TellWhatIsMixed(Browser& browser, const SavedGame& shown) {
  std::string scores;
  int games = 0;
  for (const SavedGame& game : ReadSavedGames(browser.platform.database, shown.id)) {
    if (!ShareATeam(game, shown)) continue;
    ++games;
    scores += "\n" + ScoreText(game);
  }
  if (games < 2) return;
  browser.platform.boxes.Show(
      "These games have the same GameID and a team in common, "
      "so that nothing tells the rows of their players apart. They are shown together:\n" +
          scores,
      BoxIcon::Information, kBrowserTitle);
}

// The game in Text9.
void LoadBoxScore(Browser& browser, const std::string& first, const std::string& second) {
  BrowserState& state = browser.state;
  try {
    LoadPlayers(browser, state.MSHFlexGrid6, kBatting, first);
    LoadPlayers(browser, state.MSHFlexGrid7, kPitching, first);
    LoadPlayers(browser, state.MSHFlexGrid8, kBatting, second);
    LoadPlayers(browser, state.MSHFlexGrid11, kPitching, second);
    StatGrid lines = ReadGrid(browser.platform.database,
                              {"SELECT * FROM BoxScores WHERE GameID LIKE ?1 AND Team IN (?2, ?3)"
                               " ORDER BY Host, rowid",
                               {Containing(state.Text9.value()), first, second}},
                              kTeamAndGame);
    lines.SetColumnWidth(kHost, 0);
    ShowGrid(state.MSHFlexGrid12, std::move(lines));
    state.SSTab1.Set(browser_tab::kGameStats);
    TellWhatIsMixed(browser, {.id = state.Text9.value(), .visitors = first, .home = second});
  } catch (const ProgramError& failure) {
    TellQueryFailure(browser, failure.what());
  }
}

}  // namespace

void SelectGameID(Browser& browser, int row, int column) {
  BrowserState& state = browser.state;
  const StatGrid& lineScores = state.MSHFlexGrid1.grid;
  if (row < 1 || row >= lineScores.rows()) return;
  if (column != kGameID) return state.Text9.Set("");
  const SavedGame game = GameInRow(lineScores, row);
  ShowBoxScore(browser, game.id, game.visitors, game.home);
}

void ShowBoxScore(Browser& browser, const std::string& game, const std::string& visitors,
                  const std::string& home) {
  browser.state.Text9.Set(game);
  LoadBoxScore(browser, visitors, home);
}

}  // namespace dtb
