#include "database/restore.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>

#include "base/checksum.h"
#include "base/text_cell.h"
#include "base/words.h"
#include "database/backups.h"
#include "database/old_database.h"
#include "database/rows.h"
#include "database/saved_games.h"
#include "database/saved_tables.h"
#include "platform/database.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

using Games = std::vector<SavedGame>;

// A table as far as two of them can be told apart at a glance: its rows, and the sums of its
// columns.
struct TableSums {
  int rows = 0;
  std::string sums;
};

// What a database holds, as far as a person would tell two apart.
struct Holding {
  Games games;
  std::vector<TableSums> tables;  // as AllTables
};

// The plays of many games would take seconds to add up. They are known by the checksum that each
// game has of all its rows.
std::string SumsOfGames(Database& database) {
  std::uint64_t sum = kChecksumOfNothing;
  ForEachRow(database, {"SELECT OwnID FROM Games ORDER BY OwnID"},
             [&sum](std::span<const DatabaseValue> row) {
               sum = ChecksumOf("|", ChecksumOf(TextIn(row.front()), sum));
             });
  return HexText(sum);
}

TableSums SumsOf(Database& database, const TableColumns& table) {
  const bool ofPlays =
      std::ranges::find(PlayTables(), table.table, &TableColumns::table) != PlayTables().end();
  std::string query = "SELECT count(*)";
  if (!ofPlays) {
    for (const std::string& column : table.columns) query += ", total([" + column + "])";
  }
  TableSums sums;
  ForEachRow(database, {query + " FROM " + table.table},
             [&sums](std::span<const DatabaseValue> row) {
               sums.rows = static_cast<int>(NumberIn(row.front()));
               for (const DatabaseValue& sum : row.subspan(1))
                 sums.sums.append(TextIn(sum)).append("|");
             });
  if (table.table == table::kGames) sums.sums = SumsOfGames(database);
  return sums;
}

Holding HoldingOf(Database& database) {
  Holding holding{ReadSavedGames(database), {}};
  std::ranges::sort(holding.games);
  for (const TableColumns& table : AllTables()) {
    holding.tables.push_back(SumsOf(database, table));
  }
  return holding;
}

// Nothing if it cannot be read; then why it cannot.
std::optional<Holding> TryHolding(Database* database, std::string& fault) {
  try {
    if (database != nullptr) return HoldingOf(*database);
  } catch (const ProgramError& failure) {
    fault = failure.what();
  }
  return std::nullopt;
}

Games Missing(const Games& from, const Games& in) {
  Games missing;
  std::ranges::set_difference(in, from, std::back_inserter(missing));
  return missing;
}

// "Batting: 40 rows instead of 0; matchups: other figures." for the tables that differ.
std::string TablesText(const Holding& copy, const Holding& today) {
  constexpr std::array kWords{"batting", "pitching", "line scores", "win/loss", "matchups",
                              "games",   "plays",    "runs",        "decisions"};
  std::string text;
  for (std::size_t i = 0; i < kWords.size() && i < copy.tables.size(); ++i) {
    const TableSums now = i < today.tables.size() ? today.tables[i] : TableSums();
    const TableSums& then = copy.tables[i];
    if (then.rows == now.rows && then.sums == now.sums) continue;
    text += (text.empty() ? "" : "; ") + std::string(kWords.at(i)) + ": ";
    text += then.rows == now.rows
                ? "other figures"
                : Counted(then.rows, "row") + " instead of " + std::to_string(now.rows);
  }
  if (!text.empty()) text = " In the tables " + text + ".";
  return text;
}

// "3 games come back, 1 game goes", and what differs in the tables.
std::string ChangesText(const Holding& copy, const Holding& today, int back, int gone) {
  std::string text;
  if (back > 0) text += Counted(back, "game") + (back == 1 ? " comes back" : " come back");
  if (gone > 0) {
    text += (text.empty() ? "" : ", ") + Counted(gone, "game") + (gone == 1 ? " goes" : " go");
  }
  const std::string tables = TablesText(copy, today);
  if (text.empty()) {
    text = tables.empty() ? "Identical to the database" : "The same games as in the database";
  }
  return text + "." + tables;
}

void ShowChanges(CopiesState& state, const Games& back, const Games& gone) {
  std::vector<std::vector<std::string>> rows;
  for (const auto& [games, word] : {std::pair{&back, "comes back"}, {&gone, "goes"}}) {
    for (const SavedGame& game : *games) rows.push_back({word, ScoreText(game), game.id});
  }
  state.grd_Changes.Replace(ContentsOf({"Change", "Game", "GameID"}, rows));
  constexpr int kWordWidth = 1200;
  constexpr int kGameIDWidth = 1600;
  state.grd_Changes.SetColumnWidth(1, kWordWidth);
  state.grd_Changes.SetColumnWidth(3, kGameIDWidth);
}

const std::string& SelectedName(const CopiesState& state) {
  return state.names.at(static_cast<std::size_t>(state.row) - 1);
}

// The database of today goes on as a copy, or under another name if it is damaged. False: the
// person keeps it.
bool PutInPlace(CopiesDesk& desk, const std::string& name, std::string& done) {
  Platform& platform = desk.platform;
  if (platform.copies.Examine() != DatabaseHealth::Sound) {
    const Aside asideFor = AsideFor(platform);
    const std::string aside = platform.copies.Renew(name, asideFor.name);
    if (!aside.empty()) {
      done = "\n\nThe " + asideFor.what + " file is kept beside it as \"" + aside + "\".";
    }
    return true;
  }
  try {
    const std::string today = CopyAside(platform, name);
    done = "\n\nThe previous database is kept as the copy of " + TimeOfCopy(today).value_or(today) +
           ".";
  } catch (const ProgramError& fault) {
    const bool goOn = platform.boxes.Ask(
        {"The current database could not be copied first, so it could not be restored later.\n\n" +
             std::string(fault.what()) + "\n\nRestore the older copy anyway?",
         kCopiesTitle});
    if (!goOn) return false;
  }
  platform.copies.BringBack(name);
  return true;
}

}  // namespace

void ListCopies(CopiesDesk& desk) {
  CopiesState& state = desk.state;
  state.names = CopiesNewestFirst(desk.platform.copies);
  std::vector<std::vector<std::string>> rows;
  for (const std::string& name : state.names) {
    const auto games = GamesOfCopy(desk.platform.copies, name);
    rows.push_back({TimeOfCopy(name).value_or(name),
                    games ? std::to_string(*games) : std::string("damaged"),
                    FileSizeText(desk.platform.copies.CopySize(name))});
  }
  state.grd_Copies.Replace(ContentsOf({"Copy of", "Games", "Size"}, rows));
  for (const int column : {2, 3}) {
    state.grd_Copies.SetColumnAlignment(column, CellAlignment::Right);
  }
  SelectCopy(desk, rows.empty() ? 0 : 1);
}

void SelectCopy(CopiesDesk& desk, int row) {
  CopiesState& state = desk.state;
  state.row = row >= 1 && row < state.grd_Copies.rows() ? row : 0;
  std::string fault;
  const auto today = TryHolding(&desk.platform.database, fault);
  state.lbl_Database.Set(today ? "The database has " +
                                     Counted(static_cast<int>(today->games.size()), "game") + "."
                               : fault);
  if (state.row == 0) {
    ShowChanges(state, {}, {});
    state.canBringBack.Set(false);
    return state.lbl_Changes.Set(
        "There are no copies yet. "
        "The program makes one before the first save of a day and before each delete.");
  }
  const std::string& name = SelectedName(state);
  const auto opened = desk.platform.copies.OpenCopy(name);
  fault = desk.platform.copies.FaultOfCopy(name);
  const auto copy = fault.empty() ? TryHolding(opened.get(), fault) : std::nullopt;
  state.canBringBack.Set(copy.has_value());
  if (!copy) {
    ShowChanges(state, {}, {});
    return state.lbl_Changes.Set(fault);
  }
  const Holding now = today.value_or(Holding());
  const Games back = Missing(now.games, copy->games);
  const Games gone = Missing(copy->games, now.games);
  ShowChanges(state, back, gone);
  state.lbl_Changes.Set(
      ChangesText(*copy, now, static_cast<int>(back.size()), static_cast<int>(gone.size())));
}

void BringBackSelected(CopiesDesk& desk) {
  CopiesState& state = desk.state;
  if (state.row == 0 || !state.canBringBack.value()) return;
  MessageBoxes& boxes = desk.platform.boxes;
  // The list is made again while today's copy is added, so the name is kept.
  const std::string name = SelectedName(state);
  const std::string words = "the copy of " + TimeOfCopy(name).value_or(name);
  if (!boxes.Ask({"Replace the database with " + words + "?\n\n" + state.lbl_Changes.value() +
                      "\n\nThe current database is kept, too.",
                  kCopiesTitle})) {
    return;
  }
  Trapped(boxes, [&] {
    try {
      std::string done;
      if (!PutInPlace(desk, name, done)) return;
      state.broughtBack = true;
      boxes.Show("The database is now " + words + "." + done, BoxIcon::Information, kCopiesTitle);
    } catch (const ProgramError& failure) {
      boxes.Show("The database was not changed. " + std::string(failure.what()), BoxIcon::Critical,
                 kCopiesTitle);
    }
  });
  ListCopies(desk);
}

}  // namespace dtb
