#include "database/season_shelf.h"

#include <algorithm>
#include <set>

#include "base/file_names.h"
#include "base/letters.h"
#include "base/program_error.h"
#include "base/settings_keys.h"
#include "base/text_cell.h"
#include "base/time_stamp.h"
#include "base/utf8.h"
#include "base/words.h"
#include "database/rows.h"
#include "database/saved_games.h"
#include "database/team_groups.h"
#include "platform/database.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

constexpr const char* kNotTold = "-";

// Where the settings have something of a season.
std::string KeyOf(const char* key, const std::string& season) {
  return season.empty() ? key : std::string(key) + " of " + season;
}

// What the settings have of a season goes over to its new name; "": nobody has it any more, lest
// another season of the old name takes it for its own.
void MoveSettings(SettingsStore& store, const std::string& name, const std::string& to) {
  for (const char* key : {settings::kSeasonArchive, settings::kSeasonClub, settings::kSeasonLeagues,
                          settings::kSeasonGroups}) {
    const std::string value = store.Read(settings::kLabels, KeyOf(key, name), "");
    if (value.empty()) continue;
    if (!to.empty()) store.Write(settings::kLabels, KeyOf(key, to), value);
    store.Write(settings::kLabels, KeyOf(key, name), "");
  }
}

// The days of the games, as the plays' tables tell, else by their GameIDs: "2020-08-07".
std::set<std::string> DaysOf(DatabaseReader& database, const std::vector<SavedGame>& games) {
  std::set<std::string> days;
  std::set<std::string> told;
  ForEachRow(database, {"SELECT GameID, GameDate FROM Games WHERE GameDate <> ''"},
             [&](std::span<const DatabaseValue> row) {
               told.insert(TextIn(row[0]));
               days.insert(TextIn(row[1]));
             });
  for (const SavedGame& game : games) {
    const auto time = TimeOfStamp(game.id);
    if (time && !told.contains(game.id)) days.insert(DateText(*time));
  }
  return days;
}

// The cells of a season's row behind its name.
std::vector<std::string> CellsOf(Seasons& seasons, const std::string& name) {
  std::vector<std::string> cells(5, kNotTold);
  if (!seasons.Stands(name)) return cells;
  cells[4] = FileSizeText(seasons.Size(name));
  try {
    const auto database = seasons.OpenSeason(name);
    const std::vector<SavedGame> games = ReadSavedGames(*database);
    cells[0] = std::to_string(games.size());
    std::set<std::string> teams;
    for (const SavedGame& game : games) teams.insert({game.visitors, game.home});
    cells[3] = std::to_string(teams.size());
    const std::set<std::string> days = DaysOf(*database, games);
    if (days.empty()) return cells;
    for (const auto& [cell, day] : {std::pair{1, *days.begin()}, {2, *days.rbegin()}}) {
      const auto date = DateIn(day);
      cells[static_cast<std::size_t>(cell)] = date ? PlainDay(*date) : day;
    }
  } catch (const ProgramError&) {
    cells[0] = "cannot be read";
  }
  return cells;
}

std::string Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string Folded(std::string_view text) {
  std::string folded;
  while (!text.empty()) {
    const Utf8Character letter = FirstCharacter(text);
    AppendUtf8(folded, FoldedLetter(letter.code));
    text.remove_prefix(letter.bytes);
  }
  return folded;
}

// Why no season can be called so; "" for nothing. One may get the letters of its own name in
// another case.
std::string FaultOfName(Seasons& seasons, const std::string& name, const std::string& own = {}) {
  if (name.empty()) return "Type a name for the season first.";
  if (SafeNamePart(name) != name) {
    return "\"" + name +
           "\" cannot be the name of a file: it must not have any of <>:\"/\\|?*, a "
           "dot at its end, or more than 80 letters.";
  }
  for (const std::string& other : seasons.Names()) {
    if (other != own && Folded(other) == Folded(name)) {
      return "There is a season \"" + other + "\" already.";
    }
  }
  return {};
}

std::string SelectedName(const ShelfState& state) {
  return state.row > 0 ? state.names.at(static_cast<std::size_t>(state.row) - 1) : std::string();
}

void Use(ShelfDesk& desk, const std::string& name) {
  Platform& platform = desk.platform;
  if (name == platform.seasons.InUse()) return;
  platform.seasons.Use(name);
  desk.state.changed = true;
  platform.settings.Write(settings::kLabels, settings::kSeasonInUse, name);
  MoveGroups(platform, name);
}

// A wish that is told about, whatever comes of it; the list shows what is so then.
template <class Wish>
void Do(ShelfDesk& desk, Wish wish) {
  desk.state.lbl_Shelf.Set("");
  std::string told;
  try {
    told = wish();
  } catch (const ProgramError& failure) {
    desk.platform.boxes.Show(failure.what(), BoxIcon::Exclamation, kShelfTitle);
  }
  ListSeasons(desk);
  desk.state.lbl_Shelf.Set(told);
}

// A box about the typed name; true: it can be used.
bool CanBeCalled(ShelfDesk& desk, const std::string& name, const std::string& own = {}) {
  const std::string fault = FaultOfName(desk.platform.seasons, name, own);
  if (!fault.empty()) desk.platform.boxes.Show(fault, BoxIcon::Exclamation, kShelfTitle);
  return fault.empty();
}

// The usual season has no name, and stays where it is.
bool IsOnShelf(ShelfDesk& desk, const char* why) {
  if (desk.state.row == 0) return false;
  if (!SelectedName(desk.state).empty()) return true;
  desk.platform.boxes.Show(why, BoxIcon::Information, kShelfTitle);
  return false;
}

}  // namespace

std::vector<std::string> SeasonNames(Seasons& seasons) {
  std::vector<std::string> names = seasons.Names();
  std::ranges::sort(names, [](const std::string& a, const std::string& b) {
    const int order = CompareNames(a, b);
    return order != 0 ? order < 0 : a < b;
  });
  names.insert(names.begin(), "");
  return names;
}

std::string ShownSeason(const std::string& name) { return name.empty() ? kUsualSeason : name; }

std::string TakeUpSeason(Platform& platform) {
  const std::string name = platform.settings.Read(settings::kLabels, settings::kSeasonInUse, "");
  const bool there = SafeNamePart(name) == name && platform.seasons.Stands(name);
  if (there && !name.empty()) platform.seasons.Use(name);
  MoveGroups(platform, platform.seasons.InUse());
  if (there || name.empty()) return {};
  return "The season \"" + name +
         "\" is no longer on the shelf. Games are saved into the usual database, DTB.mdb, until "
         "you "
         "choose another season.";
}

void ListSeasons(ShelfDesk& desk) {
  ShelfState& state = desk.state;
  Seasons& seasons = desk.platform.seasons;
  state.names = SeasonNames(seasons);
  std::vector<std::vector<std::string>> rows;
  state.row = 0;
  for (const std::string& name : state.names) {
    const bool used = name == seasons.InUse();
    std::vector<std::string> row{ShownSeason(name) + (used ? ", in use" : "")};
    std::ranges::move(CellsOf(seasons, name), std::back_inserter(row));
    rows.push_back(std::move(row));
    if (used) state.row = static_cast<int>(rows.size());
  }
  state.grd_Seasons.Replace(
      ContentsOf({"Season", "Games", "First game", "Last game", "Teams", "Size"}, rows));
  for (int column = 2; column < state.grd_Seasons.columns(); ++column) {
    state.grd_Seasons.SetColumnAlignment(column, CellAlignment::Right);
    constexpr int kWidth = 1500;  // of a date, in twips
    state.grd_Seasons.SetColumnWidth(column, kWidth);
  }
}

void UseSelectedSeason(ShelfDesk& desk) {
  if (desk.state.row == 0) return;
  Do(desk, [&desk] {
    const std::string name = SelectedName(desk.state);
    Use(desk, name);
    return "Games are saved into " + ShownSeason(name) + " from now on.";
  });
}

void MakeSeason(ShelfDesk& desk) {
  const std::string name = Trimmed(desk.state.tb_Name.value());
  if (!CanBeCalled(desk, name)) return;
  Do(desk, [&] {
    desk.platform.seasons.Create(name);
    Use(desk, name);
    desk.state.tb_Name.Set("");
    return "The season " + name + " begins. Games are saved into it from now on.";
  });
}

void RenameSelectedSeason(ShelfDesk& desk) {
  if (!IsOnShelf(desk, "The usual season has no name. Make a new one, or choose one that has.")) {
    return;
  }
  const std::string name = SelectedName(desk.state);
  const std::string to = Trimmed(desk.state.tb_Name.value());
  if (!CanBeCalled(desk, to, name)) return;
  Do(desk, [&] {
    Seasons& seasons = desk.platform.seasons;
    const bool used = seasons.InUse() == name;
    seasons.Rename(name, to);
    SettingsStore& store = desk.platform.settings;
    if (used) store.Write(settings::kLabels, settings::kSeasonInUse, to);
    MoveSettings(store, name, to);
    desk.state.changed = desk.state.changed || used;
    desk.state.tb_Name.Set("");
    return name + " is called " + to + " from now on.";
  });
}

void CopySelectedSeasonOut(ShelfDesk& desk) {
  if (desk.state.row == 0) return;
  const std::string name = SelectedName(desk.state);
  const auto file = desk.platform.dialogs.SaveFile({desk.platform.programFolder,
                                                    (name.empty() ? "DTB" : name) + ".mdb",
                                                    "Databases (*.mdb)|*.mdb", "mdb"});
  if (!file) return;
  Do(desk, [&] {
    MoveGroups(desk.platform, name);
    desk.platform.seasons.CopyOut(name, *file);
    return "The copy is written.";
  });
}

void PutSelectedSeasonAway(ShelfDesk& desk) {
  if (!IsOnShelf(desk, "The usual season stays: the program would have none to fall back on.")) {
    return;
  }
  const std::string name = SelectedName(desk.state);
  const bool used = desk.platform.seasons.InUse() == name;
  const Question question{
      "Put the season \"" + name +
          "\" away? Its file goes into the folder \"Put away\" of the shelf, with all its games." +
          (used ? " The usual season comes into use." : ""),
      kShelfTitle};
  if (!desk.platform.boxes.Ask(question)) return;
  Do(desk, [&] {
    if (used) Use(desk, "");
    desk.platform.seasons.PutAway(name);
    MoveSettings(desk.platform.settings, name, {});
    return name + " is put away.";
  });
}

std::string SettingOfSeason(const Platform& platform, const char* key) {
  return SettingOfSeason(platform, key, platform.seasons.InUse());
}

std::string SettingOfSeason(const Platform& platform, const char* key, const std::string& season) {
  return platform.settings.Read(settings::kLabels, KeyOf(key, season), "");
}

void ForgetForSeason(const Platform& platform, const char* key, const std::string& season) {
  if (SettingOfSeason(platform, key, season).empty()) return;
  platform.settings.Write(settings::kLabels, KeyOf(key, season), "");
}

void KeepForSeason(const Platform& platform, const char* key, const std::string& value) {
  if (SettingOfSeason(platform, key) == value) return;
  platform.settings.Write(settings::kLabels, KeyOf(key, platform.seasons.InUse()), value);
}

std::string SeasonInTitle(const Platform& platform) {
  const std::string& name = platform.seasons.InUse();
  return name.empty() ? "" : " - " + name;
}

}  // namespace dtb
