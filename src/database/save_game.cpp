#include "database/save_game.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/checksum.h"
#include "base/program_error.h"
#include "base/time_stamp.h"
#include "database/archive_games.h"
#include "database/backups.h"
#include "database/lost_database.h"
#include "database/play_rows.h"
#include "database/rows.h"
#include "database/saved_games.h"
#include "database/saved_tables.h"
#include "game/history.h"
#include "game/innings.h"
#include "game/memento.h"
#include "game/new_game.h"
#include "platform/database.h"
#include "platform/trapped.h"
#include "record/game_record.h"
#include "sheet/cell_edit.h"
#include "sheet/number_cells.h"
#include "sheet/proof.h"
#include "teams/pitchers.h"

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
  std::string park;          // "": not known
  std::string remarks = {};  // what went not as it should, for the box at the end
  std::size_t table = 0;     // place in SavedTables of the one being filled
  std::uint64_t checksum = kChecksumOfNothing;  // of all rows

  [[nodiscard]] const TableColumns& columns() const { return SavedTables().at(table); }
  void Append(const std::vector<ColumnText>& row) {
    rows->Append(columns().table, row);
    checksum = ChecksumOf(TableRow{columns().table, row}, checksum);
  }
  void FinishTable() { ++table; }
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

// The time of the save, or the next second at which no game stands yet: another board may save in
// the same one, and clocks are set back. Nobody else writes until the save ends.
std::string FreeGameID(GameSave& save) {
  LocalTime time = save.board.platform.clock.Now();
  for (;; time = NextSecond(time)) {
    std::string id = MakeStamp(time);
    const Statement games{
        "SELECT EXISTS (SELECT 1 FROM BoxScores WHERE GameID = ?1)"
        " OR EXISTS (SELECT 1 FROM Batting WHERE GameID = ?1)"
        " OR EXISTS (SELECT 1 FROM Pitching WHERE GameID = ?1)",
        {id}};
    if (CountOf(*save.rows, games) == 0) return id;
  }
}

void RecordBattingData(GameSave& save) {
  save.board.sheet.tb_TimeStamp2.Set(FreeGameID(save));
  RecordPlayers(save, stat_column::kBatter, stat_column::kAtBats - stat_column::kBatter,
                // The marks of a team of fewer than nine stand also in rows without a player.
                [](const StatGrid& grid, int row) {
                  return grid.Text(row, stat_column::kPlayed) == "1" &&
                         !grid.Text(row, stat_column::kBatter).empty();
                });
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
    row.push_back({"Host", HostOf(side)});
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
  const int row = RowOfPresentPitcher(board, side);
  if (row > 0 && fields.grid.Text(row, stat_column::kPitcher) != name) {
    EnterPitcher(fields.grid, row, name);
  }
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

std::string NotSaved(const ProgramError& failure) {
  return "The game was not saved. " + std::string(failure.what());
}

// Puts everything back as it stood before the save, the button first.
void PutBack(GameSave& save, const GameMemento& before) {
  save.rows.reset();
  save.board.sheet.Command2_enabled.Set(true);
  Restore(save.board, before);
}

void TellFailure(GameSave& save, const GameMemento& before, const std::string& why) {
  PutBack(save, before);
  save.board.platform.boxes.Show(
      "The game was not saved, and nothing of it is stored. " + why + " You can try again.",
      BoxIcon::Critical);
}

// The plays and what comes of them, in the tables of their own. They are no reason to lose a game:
// where a table of such a name is somebody else's, the five tables have the game without them.
void RecordPlays(GameSave& save) {
  GameRecord game = RecordOf(save.board);
  // As in the five tables.
  for (const Side side : kOrderOfTeams) game.side(side).team = TeamOf(save.board, side);
  game.archive = ArchiveGameOnBoard(save.board);
  game.date = DateOfArchiveGame(game.archive);
  if (game.date.empty()) game.date = DateText(save.board.platform.clock.Now());
  game.park = save.park;
  std::vector<TableRow> rows = PlayRowsOf(game);
  for (const TableRow& row : rows) save.checksum = ChecksumOf(row, save.checksum);
  rows.push_back(GameRowOf(game, save.checksum));
  const std::string fault = save.rows->AppendPlays(rows);
  if (fault.empty()) return;
  save.remarks += "\n\nIts plays, its date and its decisions were not saved with it. " + fault;
}

// False: nothing is stored, which was told.
bool Record(GameSave& save, const GameMemento& before) {
  try {
    RecordBattingData(save);
    RecordPitchingData(save);
    RecordBoxScore(save);
    UpdateWinLoss(save);
    RecordMatchup(save);
    RecordPlays(save);
    save.rows->Commit();
  } catch (const ProgramError& failure) {
    if (!IsLost(failure)) {
      TellFailure(save, before, failure.what());
      return false;
    }
    PutBack(save, before);
    OfferAnotherDatabase(save.board.platform, NotSaved(failure) + " You can save it again then.",
                         {});
    return false;
  } catch (const std::bad_alloc&) {
    TellFailure(save, before, "The computer is out of memory.");
    return false;
  }
  // What is in the database cannot be taken back on the board.
  if (save.board.history != nullptr) save.board.history->Clear();
  save.rows.reset();
  return true;
}

// What does not agree is shown before it is stored. False: back to the sheet.
bool AgreedWithProof(Board& board) {
  const std::vector<Finding> findings = Prove(board, ProofMoment::Save);
  if (findings.empty()) return true;
  Choice choice{.text = "Some figures of this game do not agree:",
                .title = "Proof of the box score"};
  for (const Finding& finding : findings) choice.lines.push_back(finding.words);
  const bool mends = std::ranges::any_of(findings, &Finding::canBePutRight);
  if (mends) choice.answers.emplace_back("Put right and save");
  choice.answers.emplace_back("Save as it stands");
  choice.answers.emplace_back("Back to the sheet");
  const std::string& answer = choice.answers.at(board.platform.boxes.Choose(choice));
  if (answer == "Put right and save") PutRight(board, ProofMoment::Save, findings);
  return answer != "Back to the sheet";
}

// The team whose list has no highlighted player, where one is needed on both sides.
bool TellMissingHighlight(Board& board) {
  std::string lists;
  for (const Side side : kOrderOfTeams) {
    if (!SideOf(board, side).list.SelectedEntry().empty()) continue;
    lists += (lists.empty() ? "" : " and ") +
             std::string(side == Side::Visitors ? "the visitors' list" : "the home team's list");
  }
  if (lists.empty()) return false;
  board.platform.boxes.Show(
      "The game was not saved. In " + lists +
          " no player is highlighted. Load the team, click a player and save again.",
      BoxIcon::Exclamation);
  return true;
}

// Names the cells that the database would refuse.
bool TellMisplacedText(Board& board) {
  constexpr std::size_t kMostLines = 8;
  const auto misplaced = TextWhereNumbersBelong(board, NumberRows::Saved);
  if (misplaced.empty()) return false;
  std::string lines;
  for (std::size_t i = 0; i < misplaced.size() && i < kMostLines; ++i) {
    lines += "\n" + PlaceOf(board, misplaced[i]) + ": \"" + misplaced[i].text + "\"";
  }
  if (misplaced.size() > kMostLines) {
    lines += "\nand " + std::to_string(misplaced.size() - kMostLines) + " more";
  }
  board.platform.boxes.Show("The game was not saved. A number belongs where this stands:\n" +
                                lines + "\n\nCorrect it on the sheet and save again.",
                            BoxIcon::Exclamation);
  return true;
}

// Nothing if the game cannot be saved, which was told. In the place of a database that is missing
// or damaged the person can have another one, and the save goes on.
std::unique_ptr<DatabaseSave> BeginSave(Platform& platform, bool lostBefore = false) {
  try {
    return platform.database.BeginSave(SavedTables());
  } catch (const ProgramError& failure) {
    if (IsLost(failure) && !lostBefore) {
      if (!OfferAnotherDatabase(platform, NotSaved(failure), {})) return nullptr;
      return BeginSave(platform, true);
    }
    platform.boxes.Show(NotSaved(failure), BoxIcon::Critical);
    return nullptr;
  }
}

// What is told once the game is stored; nothing where it is not.
std::optional<std::string> Save(Board& board, const std::string& park) {
  std::optional<std::string> told;
  Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, "SAVE TO DB");
    StatSheet& sheet = board.sheet;
    MessageBoxes& boxes = board.platform.boxes;
    if (!sheet.Command2_enabled.value() || TellFigureBeingTyped(board)) return;
    if (!HasGame(sheet)) {
      boxes.Show("Missing required game data. Unable to save.", BoxIcon::Critical);
      return;
    }
    if (!boxes.Ask({"WARNING: Record data only when a game is over. Is your game over?"})) return;
    if (TellMissingHighlight(board) || !AgreedWithProof(board)) return;
    const GameMemento before = Remember(board);
    TakeBackReportedInnings(board);
    if (TellMisplacedText(board)) return Restore(board, before);
    const std::string noCopy = CopyBeforeFirstSave(board.platform);
    GameSave save{board, BeginSave(board.platform), park, noCopy};
    if (!save.rows) return Restore(board, before);
    sheet.Command2_enabled.Set(false);
    for (const Side side : kOrderOfTeams) EnterLastPitcher(board, side);
    for (const Side side : kOrderOfPlayers) CalcPitcherIPFinal(board, side);
    if (Record(save, before)) told = "Data successfully recorded" + save.remarks;
  });
  return told;
}

}  // namespace

void SaveGame(Board& board, const std::string& park) {
  if (const auto told = Save(board, park)) OfferNewGame(board, *told);
}

}  // namespace dtb
