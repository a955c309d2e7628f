#include "sheet/save_game.h"

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "game/history.h"
#include "game/innings.h"
#include "platform/database.h"
#include "sheet/saved_tables.h"
#include "shell/program_error.h"
#include "shell/time_stamp.h"

namespace dtb {
namespace {

constexpr const char* kNoTeam = "Team";

// The home team's rows come first in the tables of players.
constexpr std::array kOrderOfPlayers{Side::Home, Side::Visitors};
constexpr std::array kOrderOfTeams{Side::Visitors, Side::Home};

// A save on its way through the tables.
struct GameSave {
  Board& board;
  std::unique_ptr<DatabaseSave> rows;
  std::size_t table = 0;      // place in SavedTables of the one being filled
  bool tableStarted = false;  // it has rows of the game

  [[nodiscard]] const TableColumns& columns() const { return SavedTables().at(table); }
  void Append(const std::vector<ColumnText>& row) {
    rows->Append(columns().table, row);
    tableStarted = true;
  }
  void FinishTable() {
    ++table;
    tableStarted = false;
  }
};

std::string TeamOf(Board& board, Side side) {
  return std::string(board.sheet.grd_BoxScore.Text(SideOf(board, side).boxScoreRow, 0));
}

// Texts of so many columns of a table from one on, from as many cells of the grid; empty cells stay
// Null.
void AddCounters(std::vector<ColumnText>& row, const TableColumns& table, std::size_t column,
                 const StatGrid& grid, int gridRow, int firstCell, int count) {
  for (int i = 0; i < count; ++i) {
    const auto text = grid.Text(gridRow, firstCell + i);
    if (!text.empty()) row.push_back({table.columns.at(column + i), std::string(text)});
  }
}

// The rows of one of the two tables of players: a name and counters, then team and game.
template <class IsSaved>
void RecordPlayers(GameSave& save, int nameColumn, int counters, IsSaved isSaved) {
  const TableColumns& columns = save.columns();
  for (const Side side : kOrderOfPlayers) {
    const StatGrid& grid = SideOf(save.board, side).grid;
    for (int gridRow = 1; gridRow < grid.rows(); ++gridRow) {
      if (!isSaved(grid, gridRow)) continue;
      std::vector<ColumnText> row{
          {columns.columns.front(), std::string(grid.Text(gridRow, nameColumn))}};
      AddCounters(row, columns, 1, grid, gridRow, nameColumn + 1, counters);
      row.push_back({"Team", TeamOf(save.board, side)});
      row.push_back({"GameID", save.board.sheet.tb_TimeStamp2.value()});
      save.Append(row);
    }
  }
  save.FinishTable();
}

bool HasPitcher(const StatGrid& grid, int row) {
  return !grid.Text(row, stat_column::kPitcher).empty();
}

void RecordBattingData(GameSave& save) {
  save.board.sheet.tb_TimeStamp2.Set(MakeStamp(save.board.platform.clock.Now()));
  RecordPlayers(
      save, stat_column::kBatter, stat_column::kAtBats - stat_column::kBatter,
      [](const StatGrid& grid, int row) { return grid.Text(row, stat_column::kPlayed) == "1"; });
}

void RecordPitchingData(GameSave& save) {
  // A pitcher without an out must not make the rates divide by nothing.
  for (const Side side : kOrderOfPlayers) {
    StatGrid& grid = SideOf(save.board, side).grid;
    for (int row = 1; row < grid.rows(); ++row) {
      const auto innings = grid.Text(row, stat_column::kInningsPitched);
      if (HasPitcher(grid, row) && (innings.empty() || innings == "0")) {
        grid.SetText(row, stat_column::kInningsPitched, ".0001");
      }
    }
  }
  RecordPlayers(save, stat_column::kPitcher, stat_column::kInningsPitched - stat_column::kPitcher,
                HasPitcher);
}

void RecordBoxScore(GameSave& save) {
  const StatGrid& grid = save.board.sheet.grd_BoxScore;
  for (const Side side : kOrderOfTeams) {
    const int gridRow = SideOf(save.board, side).boxScoreRow;
    std::vector<ColumnText> row{{"Team", TeamOf(save.board, side)}};
    AddCounters(row, save.columns(), 1, grid, gridRow, 1, kInnings);
    int column = kInnings;
    for (const char* total : {"Runs", "Hits", "Errors"}) {
      row.push_back({total, std::string(grid.Text(gridRow, ++column))});
    }
    row.push_back({"Host", side == Side::Visitors ? "a_VIS" : "b_HOME"});
    row.push_back({"GameID", save.board.sheet.tb_TimeStamp2.value()});
    save.Append(row);
  }
  save.FinishTable();
}

void UpdateWinLoss(GameSave& save) {
  StatSheet& sheet = save.board.sheet;
  const double visitors = save.board.state.tb_BoxScore.at(kTotalRuns).text.number();
  const double home = save.board.state.tb_BoxScoreBottom.at(kTotalRuns).text.number();
  sheet.tb_VisWin.Set(home < visitors ? "1" : "");
  sheet.tb_HomeLoss.Set(home < visitors ? "1" : "");
  sheet.tb_HomeWin.Set(visitors < home ? "1" : "");
  sheet.tb_VisLoss.Set(visitors < home ? "1" : "");
  const auto append = [&save](Side side, const TextCell& win, const TextCell& loss) {
    std::vector<ColumnText> row{{"Team", TeamOf(save.board, side)}};
    if (win.number() == 1) row.push_back({"Win", "1"});
    if (loss.number() == 1) row.push_back({"Loss", "1"});
    save.Append(row);
  };
  append(Side::Visitors, sheet.tb_VisWin, sheet.tb_VisLoss);
  append(Side::Home, sheet.tb_HomeWin, sheet.tb_HomeLoss);
  for (TextCell* field :
       {&sheet.tb_VisWin, &sheet.tb_VisLoss, &sheet.tb_HomeWin, &sheet.tb_HomeLoss}) {
    field->Set("");
  }
  save.FinishTable();
}

void RecordMatchup(GameSave& save) {
  save.Append(
      {{"Matchup", TeamOf(save.board, Side::Visitors) + "  vs  " + TeamOf(save.board, Side::Home)},
       {"Tally", "1"}});
  save.FinishTable();
}

bool HasGame(const StatSheet& sheet) {
  return sheet.grd_BoxScore.Text(1, 0) != kNoTeam || sheet.grd_BoxScore.Text(2, 0) != kNoTeam ||
         !sheet.grd_VisStats.Text(1, stat_column::kBatter).empty();
}

// The side's pitcher takes leave of the game as if he were relieved.
void EnterLastPitcher(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  fields.pitcherPhoto.Set({});
  fields.pitcherTag.Set(fields.pitcher.value());
  const std::string& name = fields.pitcher.value();
  if (fields.grid.FindRow(stat_column::kPitcher, name)) return;
  const auto free = fields.grid.FindRow(stat_column::kPitcher, "");
  if (free) fields.grid.SetText(*free, stat_column::kPitcher, name);
}

void CalcPitcherIPFinal(Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  StatGrid& grid = fields.grid;
  const std::string left = TwoDecimals(InningsNotCredited(board, side));
  for (int row = 1; row < grid.rows(); ++row) {
    if (grid.Text(row, stat_column::kInningsPitched).empty() &&
        grid.Text(row, stat_column::kPitcher) == fields.pitcherTag.value()) {
      grid.SetText(row, stat_column::kInningsPitched, left);
    }
  }
}

// "Batting, Pitching" for the tables from first up to last; "none" where there is none.
std::string TableNames(std::size_t first, std::size_t last) {
  std::string names;
  for (std::size_t i = first; i < last; ++i) {
    names += (names.empty() ? "" : ", ") + SavedTables().at(i).table;
  }
  return names.empty() ? "none" : names;
}

void TellRefusal(const GameSave& save, const std::string& refusal) {
  const std::size_t untouched = save.tableStarted ? save.table + 1 : save.table;
  std::string message = "The game could not be saved whole. " + refusal +
                        "\n\nTables that have the game: " + TableNames(0, save.table) + ".";
  if (save.tableStarted) {
    message += "\nA table that has a part of it: " + save.columns().table + ".";
  }
  message +=
      "\nTables that have nothing of it: " + TableNames(untouched, SavedTables().size()) + ".";
  save.board.platform.boxes.Show(message, BoxIcon::Critical);
}

void Record(GameSave& save) {
  MessageBoxes& boxes = save.board.platform.boxes;
  try {
    try {
      RecordBattingData(save);
      RecordPitchingData(save);
      RecordBoxScore(save);
      UpdateWinLoss(save);
      RecordMatchup(save);
    } catch (const RowRefused& refusal) {
      save.rows->Commit();
      return TellRefusal(save, refusal.what());
    }
    save.rows->Commit();
  } catch (const ProgramError& failure) {
    save.rows.reset();
    save.board.sheet.Command2_enabled.Set(true);
    return boxes.Show("The game was not saved, and nothing of it is stored. " +
                          std::string(failure.what()) + " You can try again.",
                      BoxIcon::Critical);
  }
  boxes.Show("Data successfully recorded", BoxIcon::Information);
}

std::unique_ptr<DatabaseSave> BeginSave(Platform& platform) {
  try {
    return platform.database.BeginSave(SavedTables());
  } catch (const ProgramError& failure) {
    platform.boxes.Show("The game was not saved. " + std::string(failure.what()),
                        BoxIcon::Critical);
    return nullptr;
  }
}

}  // namespace

void SaveGame(Board& board) {
  const Gesture gesture(board, "SAVE TO DB");
  Trapped(board.platform.boxes, [&] {
    StatSheet& sheet = board.sheet;
    MessageBoxes& boxes = board.platform.boxes;
    if (!sheet.Command2_enabled.value()) return;
    if (!HasGame(sheet)) {
      boxes.Show("Missing required game data. Unable to save.", BoxIcon::Critical);
      return;
    }
    if (!boxes.Ask("WARNING: Record data only when a game is over. Is your game over?", "")) return;
    if (board.state.List1.SelectedEntry().empty() || board.state.List2.SelectedEntry().empty()) {
      return;
    }
    GameSave save{board, BeginSave(board.platform)};
    if (!save.rows) return;
    sheet.Command2_enabled.Set(false);
    for (const Side side : kOrderOfTeams) EnterLastPitcher(board, side);
    for (const Side side : kOrderOfPlayers) CalcPitcherIPFinal(board, side);
    Record(save);
    // What is in the database cannot be taken back on the board.
    if (!sheet.Command2_enabled.value() && board.history != nullptr) board.history->Clear();
  });
}

}  // namespace dtb
