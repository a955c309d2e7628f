// Names of the database's tables, and of their columns in stored order.
#pragma once

#include <string>
#include <vector>

#include "platform/database.h"

namespace dtb {

namespace table {
inline constexpr const char* kBatting = "Batting";
inline constexpr const char* kPitching = "Pitching";
inline constexpr const char* kBoxScores = "BoxScores";
inline constexpr const char* kWinLoss = "WinLoss";
inline constexpr const char* kMatchups = "Matchups";
}  // namespace table

// All five tables, in the order in which a save fills them.
[[nodiscard]] const std::vector<TableColumns>& SavedTables();

}  // namespace dtb
