// Which games of a public archive were played on the board and saved.
#pragma once

#include <string>
#include <unordered_set>

#include "game/board.h"

namespace dtb {

// The board plays the archive's game of this id from now on, between the teams that it bears;
// loading another team ends that.
void NoteArchiveGame(Board& board, const std::string& id);

// The game on the board was saved: if it is one of an archive, the settings keep which, beside the
// GameID under which the database has it. Throws ProgramError if they cannot.
void NoteSavedArchiveGame(Board& board);

// The ids of all archive games that the database has. Throws ProgramError where it cannot be read.
[[nodiscard]] std::unordered_set<std::string> SavedArchiveGames(const Platform& platform);

}  // namespace dtb
