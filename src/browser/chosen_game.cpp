#include "browser/chosen_game.h"

#include "browser/opening.h"
#include "browser/queries.h"
#include "database/deletes.h"
#include "database/saved_games.h"
#include "database/saved_twice.h"

namespace dtb {

std::optional<GameChoice> ChosenGame(const BrowserState& state, int row) {
  const StatGrid& lineScores = state.MSHFlexGrid1.grid;
  if (lineScores.columns() <= line_score_column::kGameID) return std::nullopt;
  const auto choiceOf = [&lineScores](int line) {
    const SavedGame game = GameInRow(lineScores, line);
    return GameChoice{game.id, {game.visitors, game.home}};
  };
  if (row >= 1 && row < lineScores.rows()) return choiceOf(row);
  const std::string& part = state.Text9.value();
  std::optional<GameChoice> found;
  for (int line = 1; line < lineScores.rows() && !part.empty(); ++line) {
    const auto id = lineScores.Text(line, line_score_column::kGameID);
    if (id.find(part) == std::string_view::npos) continue;
    const GameChoice choice = choiceOf(line);
    if (found && choice != *found) return std::nullopt;
    found = choice;
  }
  return found;
}

void TakeOutChosen(Browser& browser, const std::optional<GameChoice>& game) {
  if (!game || game->id.empty()) {
    return browser.platform.boxes.Show(
        "No game is chosen. Click one of its two lines in the list, or enter its GameID.",
        BoxIcon::Information, kBrowserTitle);
  }
  if (!TakeOutGame(browser.platform, *game, kBrowserTitle)) return;
  ReadAgain(browser);
  FindGameSavedTwice(browser);
}

void SelectForDelete(Browser& browser, const BrowserGrid& grid, int row) {
  constexpr int kName = 1;
  if (row < 1 || row >= grid.grid.rows()) return;
  browser.state.lbl_DEL2.Set(std::string(grid.grid.Text(row, kName)));
}

void DeleteSelected(Browser& browser) {
  DeleteRecordOf(browser.platform, browser.state.lbl_DEL2.value(), kBrowserTitle);
}

void FindGameSavedTwice(Browser& browser) {
  BrowserState& state = browser.state;
  Database& database = browser.platform.database;
  std::optional<SavedTwice> twice;
  try {
    const BrowserGrid& list = state.MSHFlexGrid1;
    if (list.shown && list.shown->query == Query::Command4) {
      twice = FindSavedTwice(database, list.grid);
    } else if (list.shown) {
      twice = FindSavedTwice(database, ReadQuery(database, Query::Command4, {}));
    }
  } catch (const ProgramError&) {
    twice.reset();  // whoever asks for the tables is told
  }
  if (twice) state.savedAgain = twice->again;
  state.lbl_Twice.Set(twice ? twice->words : "");
}

}  // namespace dtb
