// All games of a day, on their way to the clipboard.
#pragma once

#include <string>

#include "platform/platform.h"
#include "record/game_record.h"

namespace dtb {

// Copies the games saved on the day of a game, in short. A game that is not saved has the day of
// today. Returns what is told of it. Throws ProgramError.
std::string CopiedDay(Platform& platform, const GameRecord& game);

}  // namespace dtb
