#include "database/saved_tables.h"

#include <algorithm>

#include "base/text_cell.h"
#include "game/board_state.h"

namespace dtb {
namespace {

TableColumns BoxScores() {
  TableColumns boxScores{table::kBoxScores, {"Team"}};
  for (int inning = 1; inning <= kInnings; ++inning) {
    boxScores.columns.push_back(std::string("I").append(DecimalText(inning)));
  }
  for (const char* column : {"Runs", "Hits", "Errors", "Host", "GameID"}) {
    boxScores.columns.emplace_back(column);
  }
  return boxScores;
}

}  // namespace

const std::vector<TableColumns>& SavedTables() {
  static const std::vector<TableColumns> tables{
      {table::kBatting,
       {"Batter", "k", "BB", "1B", "2B", "3B", "HR", "SB", "RBI", "AB", "Team", "GameID"}},
      {table::kPitching, {"Pitcher", "k", "BB", "Hits", "HR", "Runs", "IP", "Team", "GameID"}},
      BoxScores(),
      {table::kWinLoss, {"Team", "Win", "Loss"}},
      {table::kMatchups, {"Matchup", "Tally"}},
  };
  return tables;
}

const std::vector<TableColumns>& PlayTables() {
  static const std::vector<TableColumns> tables{
      {table::kGames,
       {"GameID", "OwnID", "GameDate", "ArchiveGame", "Park", "VisitorsLineup", "HomeLineup"}},
      {table::kPlays,
       {"Number", "Inning", "Half", "Outs", "Team", "Batter", "Opponent", "Pitcher", "Outcome",
        "BasesKept", "Moves", "First", "Second", "Third", "GameID"}},
      {table::kRuns,
       {"Play", "Runner", "Batter", "Pitcher", "RBI", "Earned", "OnByError", "Team", "Opponent",
        "GameID"}},
      {table::kDecisions, {"Pitcher", "Decision", "Team", "GameID"}},
  };
  return tables;
}

const std::vector<TableColumns>& AllTables() {
  static const std::vector<TableColumns> tables = [] {
    std::vector<TableColumns> all = SavedTables();
    all.insert(all.end(), PlayTables().begin(), PlayTables().end());
    return all;
  }();
  return tables;
}

const std::vector<std::string>& ColumnsOf(std::string_view table) {
  return std::ranges::find(AllTables(), table, &TableColumns::table)->columns;
}

}  // namespace dtb
