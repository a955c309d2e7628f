// Loading a team for one side.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "game/board.h"

namespace dtb {

// The load button: asks for a team file, empties the side's list and logo, and opens it. After a
// cancel nothing has changed. Over a game in progress it asks whether the team is for a new game.
void LoadTeam(Board& board, Side side);

// Fills list, table, names, `Played` marks and logo from a team file. An error is told and ends it
// at the failing step; what was done before stays. Players of one name in both teams are told.
// False after an error, here and below.
bool OpenTeam(Board& board, Side side, const std::filesystem::path& file);

// A team that is no file.
struct TeamLines {
  std::string name;
  std::vector<std::string> lines;  // as a team file has them
  std::string starter = {};        // the name of who starts as pitcher; "": to be named by hand
};

// Empties both sides' lists and logos and fills them, visitors first, as one step of that name. The
// starters are named pitchers. Nothing of other teams stays on the sheet, except in a game that is
// under way: there a starter is named only where a side has no pitcher yet.
bool ReplaceTeams(Board& board, const std::array<TeamLines, 2>& teams, const std::string& step);

// Empties the side's list and logo, and opens a team file.
bool ReplaceTeam(Board& board, Side side, const std::filesystem::path& file);

}  // namespace dtb
