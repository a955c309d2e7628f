#include "browser/deletes.h"

#include <string>
#include <vector>

#include "browser/copies.h"
#include "platform/database.h"
#include "sheet/saved_tables.h"

namespace dtb {
namespace {

void DeleteAfterQuestion(Browser& browser, const std::string& question,
                         const std::vector<Statement>& statements, const std::string& completion) {
  MessageBoxes& boxes = browser.platform.boxes;
  if (!boxes.Ask({question, kBrowserTitle})) return;
  const auto wayBack = CopyBeforeLoss(browser.platform, kBrowserTitle);
  if (!wayBack) return;
  try {
    const auto change = browser.platform.database.BeginChange();
    for (const Statement& statement : statements) change->Execute(statement);
    change->Commit();
  } catch (const ProgramError& failure) {
    return boxes.Show("Nothing was deleted. " + std::string(failure.what()), BoxIcon::Exclamation,
                      kBrowserTitle);
  }
  boxes.Show(completion + *wayBack, BoxIcon::Information, kBrowserTitle);
}

}  // namespace

void SelectForDelete(Browser& browser, const BrowserGrid& grid, int row) {
  constexpr int kName = 1;
  if (row < 1 || row >= grid.grid.rows()) return;
  browser.state.lbl_DEL2.Set(std::string(grid.grid.Text(row, kName)));
}

void DeleteSelected(Browser& browser) {
  const std::string& name = browser.state.lbl_DEL2.value();
  if (name.empty()) return;
  DeleteAfterQuestion(
      browser,
      "DELETE all statistics?\n\nThis deletes \"" + name +
          "\" from the tables of this tab. Its saved games and its players' figures stay.",
      {{"DELETE FROM WinLoss WHERE Team = ?1", {name}},
       {"DELETE FROM Matchups WHERE Matchup = ?1", {name}}},
      "Delete of data is complete.");
}

void DeleteWinLoss(Browser& browser) {
  DeleteAfterQuestion(browser, "DELETE all Win/Loss and Matchups data?",
                      {{"DELETE FROM WinLoss"}, {"DELETE FROM Matchups"}},
                      "Win/Loss Matchup data has been deleted.");
}

void PurgeAll(Browser& browser) {
  std::vector<Statement> statements;
  for (const TableColumns& table : SavedTables()) {
    statements.push_back({"DELETE FROM " + table.table});
  }
  DeleteAfterQuestion(browser,
                      "DELETE all statistics?\n\nAll saved games are deleted, with their batting, "
                      "pitching, standings and matchups.",
                      statements, "Delete of all statistics is complete.");
}

}  // namespace dtb
