// What the players of a game had done in their season up to it.
#pragma once

#include <stop_token>

#include "platform/database.h"
#include "record/season_to_date.h"

namespace dtb {

// The saved games of both teams that were played before the game; all of them where it is not saved
// itself. Throws ProgramError. Any thread may call it; once a stop is asked for, it fails soon.
[[nodiscard]] SeasonToDate ReadSeasonBefore(DatabaseReader& database, const GameRecord& game,
                                            const std::stop_token& stop = {});

}  // namespace dtb
