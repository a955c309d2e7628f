// The event log leaves the program.
#pragma once

#include "game/event_log.h"
#include "platform/platform.h"

namespace dtb {

// Asks for a text file, writes the log into it and tells where it is. Nothing happens when the
// person names no file; a file that cannot be written is told as a Program Error.
void SaveLog(Platform& platform, const EventLog& log);

}  // namespace dtb
