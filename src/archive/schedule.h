// The games of a season beside those that the database has.
#pragma once

#include <optional>
#include <vector>

#include "archive/season.h"
#include "platform/platform.h"

namespace dtb::archive {

// For each game of the season whether the database has it, played from this archive or from another
// one that names it alike. Throws ProgramError where the database cannot be read.
[[nodiscard]] std::vector<bool> PlayedGames(const Season& season, const Platform& platform);

inline constexpr int kAllClubs = -1;

[[nodiscard]] bool Plays(const Game& game, int club);

// The first game of a club, or of all, that is not played; none if all are.
[[nodiscard]] std::optional<int> NextGameOf(const Season& season, const std::vector<bool>& played,
                                            int club);

}  // namespace dtb::archive
