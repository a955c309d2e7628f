// The making of team files without a window.
#pragma once

#include <string>
#include <vector>

#include "platform/archive.h"

namespace dtb::seasons {

struct CommandResult {
  int exitCode = 0;  // 0: done; 1: not, or not all of it; 2: not understood
  std::string output;
  std::string errors;
};

inline constexpr const char* kTeamsUsage =
    "teams [--game ID] [--batting FILE.csv] [--pitching FILE.csv] [--replace] ARCHIVE FOLDER";

// Reads an archive, a zip or a folder, and writes into FOLDER a file for each of its teams with the
// line-up used most, or for both teams of one game, and the figures counted. Team files that are
// there already and differ stay unless --replace is given; tables of figures are written anew.
[[nodiscard]] CommandResult RunTeams(Archives& archives, const std::vector<std::string>& arguments);

}  // namespace dtb::seasons
