// Database files of whole seasons, made up for measuring.
#pragma once

#include <filesystem>

namespace dtb {

// A file with so many games, the same rows each time; made once a run and gone after it. A game has
// 22 batters and 6 pitchers of 30 teams with 25 players each, and counters that nobody touched are
// Null.
[[nodiscard]] const std::filesystem::path& SeasonOf(int games);

}  // namespace dtb
