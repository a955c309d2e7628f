// The games of a season beside those that the database has.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/database.h"
#include "seasons/season.h"

namespace dtb::seasons {

// Visitors and home team of every saved game, by the names that they bear in the database. Throws
// ProgramError where the database cannot be read.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> SavedGames(Database& database);

// For each game of the season whether the database has it. Dates are not told there, so of games of
// the same two teams on the same ground the earliest count as played, as many as are saved.
[[nodiscard]] std::vector<bool> PlayedGames(
    const Season& season, const std::vector<std::pair<std::string, std::string>>& saved);

inline constexpr int kAllClubs = -1;

[[nodiscard]] bool Plays(const Game& game, int club);

// The first game of a club, or of all, that is not played; none if all are.
[[nodiscard]] std::optional<int> NextGameOf(const Season& season, const std::vector<bool>& played,
                                            int club);

}  // namespace dtb::seasons
