// Which games of a public archive were played on the board and saved.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "game/board.h"
#include "platform/database.h"

namespace dtb {

// The board plays the archive's game of this id from now on, between the teams that it bears;
// loading another team ends that.
void NoteArchiveGame(Board& board, const std::string& id);

// The archive's id of the game on the board; "" for a game of other teams, or of one's own.
[[nodiscard]] std::string ArchiveGameOnBoard(const Board& board);

// The day that such an id tells: "2020-08-07" of "OAK202008070". "" where it tells none.
[[nodiscard]] std::string DateOfArchiveGame(std::string_view id);

// The archive's ids of the saved games, by their GameIDs. `told`: what older versions noted in the
// settings, where NotedArchiveGames reads it. Throws ProgramError. Any thread may call it.
[[nodiscard]] std::unordered_map<std::string, std::string> ArchiveIdsOfGames(
    DatabaseReader& database, const std::string& told);
[[nodiscard]] std::string NotedArchiveGames(const Platform& platform);

// The runs of both sides, visitors first, in which the saved games of an archive ended, by the
// archive's ids; of several with one id the last. Throws ProgramError.
[[nodiscard]] std::unordered_map<std::string, std::array<std::string, 2>> ReplayedRuns(
    const Platform& platform);

// The ids of all archive games that the database has: those that stand in Games, and those that
// older versions noted in the settings. Throws ProgramError where it cannot be read.
[[nodiscard]] std::unordered_set<std::string> SavedArchiveGames(const Platform& platform);

}  // namespace dtb
