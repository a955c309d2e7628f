// The shelf of seasons: which there are, which one is in use, and what can be done with them.
#pragma once

#include <string>
#include <vector>

#include "base/field.h"
#include "base/stat_grid.h"
#include "platform/platform.h"
#include "platform/seasons.h"

namespace dtb {

inline constexpr const char* kShelfTitle = "Choose a season";
// What the season beside the program is called, which has no name of its own.
inline constexpr const char* kUsualSeason = "(the usual one)";

// All seasons in the order of their names, the usual one, "", first.
[[nodiscard]] std::vector<std::string> SeasonNames(Seasons& seasons);
// The name, or kUsualSeason.
[[nodiscard]] std::string ShownSeason(const std::string& name);

// What the window of the shelf holds while it is open.
struct ShelfState {
  StatGrid grd_Seasons{1, 7};        // season, games, first day, last day, teams, size, in use
  std::vector<std::string> names{};  // of the rows, from row 1 on
  int row = 0;                       // the selected one; 0: none
  Field<std::string> tb_Name;        // for a new season, or a new name
  Field<std::string> lbl_Shelf;      // what came of a wish
  bool changed = false;              // another season is in use than at the opening
};

struct ShelfDesk {
  ShelfState& state;
  Platform& platform;
};

// At the start: takes up the season that was used last. Where it is gone, the usual one is in use,
// and the sentence says so; else "".
[[nodiscard]] std::string TakeUpSeason(Platform& platform);

// Lists all seasons, the usual one first, and selects the one in use.
void ListSeasons(ShelfDesk& desk);

// The selected one comes into use, now and at the next start.
void UseSelectedSeason(ShelfDesk& desk);
// Makes a season with the name that is typed, and takes it into use.
void MakeSeason(ShelfDesk& desk);
// The selected one gets the name that is typed. The usual one has none.
void RenameSelectedSeason(ShelfDesk& desk);
// Writes the selected one into a file of the person's choice.
void CopySelectedSeasonOut(ShelfDesk& desk);
// Takes the selected one off the shelf, after a question. The usual one stays.
void PutSelectedSeasonAway(ShelfDesk& desk);

// What the settings keep for each season apart: the archive of real games to which it is tied, and
// the club chosen in it. `key` is that of the usual season. Without a name: of the one in use.
[[nodiscard]] std::string SettingOfSeason(const Platform& platform, const char* key);
[[nodiscard]] std::string SettingOfSeason(const Platform& platform, const char* key,
                                          const std::string& season);
void KeepForSeason(const Platform& platform, const char* key, const std::string& value);
void ForgetForSeason(const Platform& platform, const char* key, const std::string& season);

// " - Summer league" behind the title of a window; "" for the usual season.
[[nodiscard]] std::string SeasonInTitle(const Platform& platform);

}  // namespace dtb
