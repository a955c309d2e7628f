// Names of the database's tables, and of their columns in stored order.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"

namespace dtb {

namespace table {
inline constexpr const char* kBatting = "Batting";
inline constexpr const char* kPitching = "Pitching";
inline constexpr const char* kBoxScores = "BoxScores";
inline constexpr const char* kWinLoss = "WinLoss";
inline constexpr const char* kMatchups = "Matchups";
inline constexpr const char* kGames = "Games";
inline constexpr const char* kPlays = "Plays";
inline constexpr const char* kRuns = "Runs";
inline constexpr const char* kDecisions = "Decisions";
}  // namespace table

// The five tables that every file has, in the order in which a save fills them.
[[nodiscard]] const std::vector<TableColumns>& SavedTables();

// The four tables of what comes of the plays. A file gets them with the first save that has
// something to put there; until then they read as empty ones.
//
// Games: a row a game. GameDate is the day on which it was played, "2020-08-07": today, or that of
// the archive's game. OwnID is the game's own, the same wherever its file goes. ArchiveGame is its
// id in a public archive. The line-ups have a player a line: place, position and name, with tabs
// between them, in the order of entrance.
// Plays: a row a play. Inning counts from 1; Half is "a_VIS" or "b_HOME", as Host of a line score.
// BasesKept is 1 where the board kept the bases. Moves has a line for each player who moved, see
// MovesText. Afterwards the runners stand on First, Second and Third.
// Runs: a row a run of a player; Play is its Number in Plays. RBI and Earned are 1 or 0. Team is
// that of the runner.
// Decisions: W, L, S, H, BS of the pitchers.
[[nodiscard]] const std::vector<TableColumns>& PlayTables();

// All nine.
[[nodiscard]] const std::vector<TableColumns>& AllTables();

// Names of the columns of one of the nine.
[[nodiscard]] const std::vector<std::string>& ColumnsOf(std::string_view table);

}  // namespace dtb
