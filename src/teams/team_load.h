// Loading a team for one side.
#pragma once

#include <filesystem>

#include "game/board.h"

namespace dtb {

// The load button: empties the side's list and logo, asks for a team file, and opens it. After a
// cancel the list stays empty; everything else keeps what it held.
void LoadTeam(Board& board, Side side);

// Fills list, table, names, `Played` marks and logo from a team file. An error is told and ends it
// at the failing step; what was done before stays.
void OpenTeam(Board& board, Side side, const std::filesystem::path& file);

// Empties the side's list and logo, and opens a team file.
void ReplaceTeam(Board& board, Side side, const std::filesystem::path& file);

}  // namespace dtb
