// The making of team files without a window.
#pragma once

#include <string>

#include "archive/lineup_choice.h"
#include "archive/remarks.h"
#include "platform/archive.h"

namespace dtb::archive {

struct TeamsRequest {
  std::string archive;    // a zip or a folder
  std::string folder;     // for the team files
  std::string game = {};  // "": the nine of each team's season; else both teams of this game
  SeasonNine nine = SeasonNine::UsedMost;
  LineForm form = {};
  std::string batting = {};   // file for the batters' figures; "": none
  std::string pitching = {};  // the same for the pitchers'
  bool replace = false;       // team files that are there already and differ
};

struct CommandResult {
  int exitCode = 0;  // 0: done; 1: not, or not all of it
  std::string output;
  std::string errors;
};

// Reads an archive and writes the files asked for. Team files that are there already and differ
// stay unless they are to be replaced; tables of figures are written again. Forms with words that
// are not known are refused before anything is read. Never throws ProgramError: what went wrong
// stands among the errors.
[[nodiscard]] CommandResult MakeTeams(Archives& archives, const TeamsRequest& request);

}  // namespace dtb::archive
