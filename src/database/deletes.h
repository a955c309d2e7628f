// Deleting from the database.
#pragma once

#include <string>

#include "platform/platform.h"

namespace dtb {

// The three deletes ask first, then copy the database aside, delete in one transaction, and end
// with their message of completion and the way to get it back, all in boxes of this title. A
// failure deletes nothing and is told. Without a copy they ask again.

// The record of the team, or of the pairing, of this name. Nothing happens for "".
void DeleteRecordOf(Platform& platform, const std::string& name, const std::string& title);

// All wins, losses and pairings.
void DeleteWinLoss(Platform& platform, const std::string& title);

// All rows of all nine tables.
void PurgeAll(Platform& platform, const std::string& title);

}  // namespace dtb
