#include "database/deletes.h"

#include <string>
#include <vector>

#include "database/backups.h"
#include "database/saved_tables.h"
#include "platform/database.h"

namespace dtb {
namespace {

struct Words {
  const std::string& title;
  std::string question;
  std::string completion;
};

void DeleteAfterQuestion(Platform& platform, const Words& words,
                         const std::vector<Statement>& statements) {
  MessageBoxes& boxes = platform.boxes;
  if (!boxes.Ask({words.question, words.title})) return;
  const auto wayBack = CopyBeforeLoss(platform, words.title);
  if (!wayBack) return;
  try {
    const auto change = platform.database.BeginChange();
    for (const Statement& statement : statements) change->Execute(statement);
    change->Commit();
  } catch (const ProgramError& failure) {
    return boxes.Show("Nothing was deleted. " + std::string(failure.what()), BoxIcon::Exclamation,
                      words.title);
  }
  boxes.Show(words.completion + *wayBack, BoxIcon::Information, words.title);
}

}  // namespace

void DeleteRecordOf(Platform& platform, const std::string& name, const std::string& title) {
  if (name.empty()) return;
  DeleteAfterQuestion(
      platform,
      {title,
       "DELETE all statistics?\n\nThis deletes \"" + name +
           "\" from the tables of this tab. Its saved games and its players' figures stay.",
       "Delete of data is complete."},
      {{"DELETE FROM WinLoss WHERE Team = ?1", {name}},
       {"DELETE FROM Matchups WHERE Matchup = ?1", {name}}});
}

void DeleteWinLoss(Platform& platform, const std::string& title) {
  // The plays and the decisions of pitchers are the games', which stay.
  DeleteAfterQuestion(
      platform,
      {title, "DELETE all Win/Loss and Matchups data?", "Win/Loss Matchup data has been deleted."},
      {{"DELETE FROM WinLoss"}, {"DELETE FROM Matchups"}});
}

void PurgeAll(Platform& platform, const std::string& title) {
  std::vector<Statement> statements;
  for (const TableColumns& table : AllTables()) {
    statements.push_back({"DELETE FROM " + table.table});
  }
  DeleteAfterQuestion(
      platform,
      {title,
       "DELETE all statistics?\n\n"
       "All saved games are deleted, with their plays, batting, pitching, standings and matchups.",
       "Delete of all statistics is complete."},
      statements);
}

}  // namespace dtb
