#include "browser/bring_back.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "browser/copies.h"
#include "browser/saved_games.h"
#include "platform/database.h"
#include "sheet/saved_tables.h"

namespace dtb {
namespace {

using Games = std::vector<SavedGame>;

// What a database holds, as far as a person would tell two apart.
struct Holding {
  Games games;
  int standings = 0;  // rows of win and loss
  int pairings = 0;
};

Holding HoldingOf(Database& database) {
  Holding holding{.games = ReadSavedGames(database)};
  std::ranges::sort(holding.games);
  holding.standings = CountOf(database, {"SELECT count(*) FROM WinLoss"});
  holding.pairings = CountOf(database, {"SELECT count(*) FROM Matchups"});
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

std::string SizeText(std::uintmax_t bytes) {
  constexpr std::uintmax_t kKilo = 1024;
  const std::uintmax_t kilobytes = (bytes + kKilo - 1) / kKilo;
  if (kilobytes < 10 * kKilo) return std::to_string(kilobytes) + " KB";
  return std::to_string(kilobytes / kKilo) + " MB";
}

GridContents ContentsOf(const std::vector<std::string>& headers,
                        const std::vector<std::vector<std::string>>& rows) {
  GridContents contents{{""}, std::vector<CellColumn>(headers.size() + 1)};
  contents.headers.insert(contents.headers.end(), headers.begin(), headers.end());
  for (const auto& row : rows) {
    contents.columns.front().Append({});
    for (std::size_t i = 0; i < row.size(); ++i) contents.columns[i + 1].Append(row[i]);
  }
  return contents;
}

// "3 games come back, 1 game goes", or what else differs.
std::string ChangesText(const Holding& copy, const Holding& today, int back, int gone) {
  std::string text;
  if (back > 0) text += Counted(back, "game") + (back == 1 ? " comes back" : " come back");
  if (gone > 0) {
    text += (text.empty() ? "" : ", ") + Counted(gone, "game") + (gone == 1 ? " goes" : " go");
  }
  if (text.empty()) text = "The games are the same as in the database";
  text += ".";
  if (copy.standings != today.standings || copy.pairings != today.pairings) {
    text += " Win/Loss: " + Counted(copy.standings, "row") + " instead of " +
            std::to_string(today.standings) + "; matchups: " + std::to_string(copy.pairings) +
            " instead of " + std::to_string(today.pairings) + ".";
  }
  return text;
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
    const std::string aside = platform.copies.Renew(name, DamagedName(platform.clock.Now()));
    if (!aside.empty()) done = "\n\nThe damaged file is kept beside it as \"" + aside + "\".";
    return true;
  }
  try {
    const std::string today = CopyAside(platform, name);
    done = "\n\nWhat stood there before is the copy of " + TimeOfCopy(today).value_or(today) + ".";
  } catch (const ProgramError& fault) {
    const bool goOn = platform.boxes.Ask(
        {"The database of today could not be copied first, so that it cannot be brought back.\n\n" +
             std::string(fault.what()) + "\n\nPut the older copy in its place all the same?",
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
                    SizeText(desk.platform.copies.CopySize(name))});
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
        "There are no copies yet. One is made before the first save of a day and before each "
        "delete.");
  }
  const auto opened = desk.platform.copies.OpenCopy(SelectedName(state));
  const auto copy = TryHolding(opened.get(), fault);
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
  // The list is made anew while today's copy is added, so the name is kept.
  const std::string name = SelectedName(state);
  const std::string words = "the copy of " + TimeOfCopy(name).value_or(name);
  if (!boxes.Ask({"Put " + words + " in the database's place?\n\n" + state.lbl_Changes.value() +
                      "\n\nThe database as it is now is kept, too.",
                  kCopiesTitle})) {
    return;
  }
  Trapped(boxes, [&] {
    try {
      std::string done;
      if (!PutInPlace(desk, name, done)) return;
      state.broughtBack = true;
      boxes.Show("In place is " + words + "." + done, BoxIcon::Information, kCopiesTitle);
    } catch (const ProgramError& failure) {
      boxes.Show("The database was left as it is. " + std::string(failure.what()),
                 BoxIcon::Critical, kCopiesTitle);
    }
  });
  ListCopies(desk);
}

}  // namespace dtb
