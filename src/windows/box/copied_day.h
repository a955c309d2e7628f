// All games of a day, on their way to the clipboard.
#pragma once

#include <string>
#include <vector>

#include "platform/platform.h"
#include "record/box_text.h"
#include "record/game_record.h"

namespace dtb {

// The box scores of saved games, each with the figures of the season up to it. Throws ProgramError.
[[nodiscard]] std::vector<BoxScore> BoxScoresOf(Database& database,
                                                const std::vector<GameRecord>& games);

// Copies the games saved on the day of a game, in short. A game that is not saved has the day of
// today. Returns what is told of it. Throws ProgramError.
std::string CopiedDay(Platform& platform, const GameRecord& game);

}  // namespace dtb
