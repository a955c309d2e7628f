// Reads the archive of a season. Any thread may do it, with an archive of its own; `goOn` is called
// there.
#pragma once

#include <optional>

#include "archive/season.h"
#include "platform/archive.h"

namespace dtb::archive {

// Reads clubs ("TEAM2020"), rosters ("NYA2020.ROS") and games ("2020NYA.EVA") of an archive, one
// file at a time; all other files are left alone. Once `goOn` says false there is no season. Lines
// that make no sense are counted and noted, the rest counts. Throws ProgramError, in plain words,
// for an archive without any game and for what Archive::Read refuses.
[[nodiscard]] std::optional<Season> ReadSeason(Archive& archive, const GoOn& goOn);

// The same for clubs and rosters alone, which takes a moment: no games, no figures, and nobody whom
// no roster has.
[[nodiscard]] std::optional<Season> ReadRosters(Archive& archive, const GoOn& goOn);

}  // namespace dtb::archive
