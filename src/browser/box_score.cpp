#include "browser/box_score.h"

#include <array>
#include <string>
#include <utility>

#include "browser/grid_format.h"
#include "browser/queries.h"

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

// The teams of the first two lines of a game, visitors first; "" for a line that is missing.
std::array<std::string, 2> TeamsOf(const StatGrid& lineScores, const std::string& game) {
  std::array<std::string, 2> teams;
  std::size_t found = 0;
  for (int row = 1; row < lineScores.rows() && found < teams.size(); ++row) {
    if (lineScores.Text(row, kGameID).find(game) == std::string_view::npos) continue;
    teams.at(found++) = lineScores.Text(row, kTeam);
  }
  return teams;
}

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

// The game in Text9.
void LoadBoxScore(Browser& browser, const std::string& first, const std::string& second) {
  BrowserState& state = browser.state;
  try {
    LoadPlayers(browser, state.MSHFlexGrid6, kBatting, first);
    LoadPlayers(browser, state.MSHFlexGrid7, kPitching, first);
    LoadPlayers(browser, state.MSHFlexGrid8, kBatting, second);
    LoadPlayers(browser, state.MSHFlexGrid11, kPitching, second);
    StatGrid lines = ReadGrid(browser.platform.database,
                              {"SELECT * FROM BoxScores WHERE GameID LIKE ?1 ORDER BY Host, rowid",
                               {Containing(state.Text9.value())}},
                              kTeamAndGame);
    lines.SetColumnWidth(kHost, 0);
    ShowGrid(state.MSHFlexGrid12, std::move(lines));
    state.SSTab1.Set(browser_tab::kGameStats);
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
  state.Text9.Set(std::string(lineScores.Text(row, column)));
  GetBoxScore(browser);
}

void GetBoxScore(Browser& browser) {
  BrowserState& state = browser.state;
  if (state.MSHFlexGrid1.grid.rows() < 2) return state.Text9.Set("");
  const auto [first, second] = TeamsOf(state.MSHFlexGrid1.grid, state.Text9.value());
  LoadBoxScore(browser, first, second);
}

void ShowBoxScore(Browser& browser, const std::string& game, const std::string& visitors,
                  const std::string& home) {
  browser.state.Text9.Set(game);
  LoadBoxScore(browser, visitors, home);
}

}  // namespace dtb
