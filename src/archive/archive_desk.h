// What the window of an archive holds, without its looks: archive_lists.h fills it, and
// archive_teams.h makes teams of what is chosen.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>

#include "archive/kept_season.h"
#include "archive/team_text.h"
#include "base/stat_grid.h"
#include "game/board.h"
#include "platform/archive.h"

namespace dtb::archive {

inline constexpr const char* kSeasonTitle = "Teams from a season";

// What the window shows; made again for each opening.
struct SeasonState {
  Field<std::string> lbl_Archive;  // what was read, or how to begin
  Field<std::string> lbl_Done;     // what the last button did
  Field<std::string> tb_Batters;   // the forms of remarks
  Field<std::string> tb_Pitchers;
  Field<bool> opt_LastFirst;
  Field<std::string> lbl_Forms;  // the words that a form can have, or what is wrong with it
  Field<bool> hasFaults;         // lines of the archive made no sense
  Field<bool> hasNext;           // a game is left to be played
  Field<bool> hasClub;           // one is chosen, so that it has a nine of the season
  // The nine of the season that is shown; nothing where none is.
  Field<std::optional<SeasonNine>> shownNine;
  StatGrid grd_Teams{1, 2};
  StatGrid grd_Games{1, 5};
  // The files as they will be: one for the nine of a season, both for a game.
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
  std::unordered_map<std::string, std::array<std::string, 2>> replays;  // runs, by archive id
  // What stands beside a player of a file, such as how much of his real use is gone: by the team's
  // and his name. None: nothing does.
  std::function<std::string(const std::string&, const std::string&)> useOf;
};

// What the operations take. They report errors in boxes and never throw.
struct ArchiveDesk {
  SeasonState& state;
  KeptSeason& kept;
  Board& board;
};

[[nodiscard]] inline Platform& PlatformOf(const ArchiveDesk& desk) { return desk.board.platform; }

}  // namespace dtb::archive
