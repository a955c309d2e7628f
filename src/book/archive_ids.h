// Who the players of a public archive are.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/platform.h"

namespace dtb::book {

// By the names of team and player on the board: the archive's id of the player, the same in all
// archives. "": two have that name.
using ArchiveIds = std::map<std::pair<std::string, std::string>, std::string>;

// Reads clubs and rosters of an archive. Nothing if it was stopped. Throws ProgramError.
[[nodiscard]] std::optional<ArchiveIds> ReadArchiveIds(const Platform& platform,
                                                       const std::string& archive,
                                                       const std::function<bool()>& goOn);

}  // namespace dtb::book
