// The window in which teams are made of a season, without its looks.
#pragma once

#include <filesystem>
#include <optional>

#include "archive/kept_season.h"
#include "archive/team_text.h"
#include "base/stat_grid.h"
#include "game/board.h"
#include "platform/archive.h"

namespace dtb::archive {

inline constexpr const char* kSeasonTitle = "Teams from a season";

// What the window shows; made anew for each opening.
struct SeasonState {
  Field<std::string> lbl_Archive;  // what was read, or how to begin
  Field<std::string> lbl_Done;     // what the last button did
  Field<std::string> tb_Batters;   // the forms of remarks
  Field<std::string> tb_Pitchers;
  Field<bool> opt_LastFirst;
  Field<std::string> lbl_Forms;  // the words that a form can have, or what is wrong with it
  Field<bool> hasFaults;         // lines of the archive made no sense
  Field<bool> hasNext;           // a game is left to be played
  StatGrid grd_Teams{1, 2};
  StatGrid grd_Games{1, 5};
  // The files as they will be: one for the line-up used most, both for a game.
  struct File {
    Field<std::string> title;
    StatGrid grid{1, 3};
    std::optional<TeamText> team = {};
  };
  std::array<File, 2> files;
  Field<int> shownFiles;  // 0 to 2

  std::vector<int> clubs;    // of the rows of grd_Teams, from its second on
  std::vector<int> games;    // of the rows of grd_Games
  std::vector<bool> played;  // of Season::games
};

// What the operations take. They report errors in boxes and never throw.
struct ArchiveDesk {
  SeasonState& state;
  KeptSeason& kept;
  Board& board;
};

// The forms that the window shows.
[[nodiscard]] LineForm ShownForm(const SeasonState& state);

// The window opens: forms come from the settings, and a season that is kept is shown.
void OpenSeasonDesk(ArchiveDesk& desk);

// The archive of the last run, if it is still there and nothing is kept.
[[nodiscard]] std::optional<std::filesystem::path> LastArchive(const ArchiveDesk& desk);

// Ask for a zip or a folder; nothing if the person cancels.
[[nodiscard]] std::optional<std::filesystem::path> ChooseZip(ArchiveDesk& desk);
[[nodiscard]] std::optional<std::filesystem::path> ChooseFolder(ArchiveDesk& desk);

// Reads an archive in the place of what is kept, with the club that was chosen last if it has that;
// after a fault, and when `goOn` says false, what is kept stays.
void ReadArchive(ArchiveDesk& desk, const std::filesystem::path& archive, const GoOn& goOn);

// Shows the lines of the archive that made no sense, and what was left out.
void ShowFaults(ArchiveDesk& desk);

// A row of the lists is selected; rows that do not exist are nothing.
void SelectTeam(ArchiveDesk& desk, int row);
void SelectGame(ArchiveDesk& desk, int row);
// Back from a game to the line-up used most.
void SelectUsedMost(ArchiveDesk& desk);

// A form changed: the files are made anew.
void ChangeForms(ArchiveDesk& desk);
// Keeps the forms and the club for the next runs.
void KeepChoices(ArchiveDesk& desk);

// Writes the files shown into the folder "Teams", and asks before it replaces one.
void WriteTeamFiles(ArchiveDesk& desk);

// Writes the one file shown, as above, and loads it for a side.
void LoadTeamAs(ArchiveDesk& desk, Side side);

// Loads both teams of the game shown, or of the next one that is not played, without any file, so
// that the season's files stay as they are. True: loaded.
bool LoadGame(ArchiveDesk& desk);
bool LoadNextGame(ArchiveDesk& desk);

}  // namespace dtb::archive
