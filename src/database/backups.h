// When the statistics database is copied aside, what the copies are called and which ones stay.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/database_copies.h"
#include "platform/platform.h"

namespace dtb {

// What brings a copy back, as its button and its menu have it.
inline constexpr const char* kBringBack = "Restore a copy...";

// "DTB 2026-11-18 10-44-13.mdb"; a second one of the same second has " (2)" behind it.
[[nodiscard]] std::string CopyName(const LocalTime& time, int number = 1);

// "DTB damaged 2026-11-18 10-44-13.mdb": what a damaged database is called from then on.
[[nodiscard]] std::string DamagedName(const LocalTime& time);

// "2026-11-18 10:44:13", also with " (2)"; nothing for a name that is not a copy's.
[[nodiscard]] std::optional<std::string> TimeOfCopy(const std::string& name);

// The names of all copies, the newest first. Other files of the folder are no copies.
[[nodiscard]] std::vector<std::string> CopiesNewestFirst(DatabaseCopies& copies);

// Which copies go: the newest 20 stay, and of the older ones one of each month: the one with the
// most games, the newest of these. The names stand newest first; `gamesOf` is asked where a month
// has a choice.
[[nodiscard]] std::vector<std::string> CopiesToRemove(
    const std::vector<std::string>& newestFirst,
    const std::function<int(const std::string&)>& gamesOf);

// The number of games in a copy; nothing if it cannot be read.
[[nodiscard]] std::optional<int> GamesOfCopy(DatabaseCopies& copies, const std::string& name);

// Copies the database, unless the newest copy holds the same, and lets old copies go, but for the
// new one and one that is still needed. Returns the name of the copy. Throws ProgramError.
std::string CopyAside(Platform& platform, const std::string& needed = {});

// The same before something is deleted. Returns a sentence that tells how to get it back, in a
// paragraph of its own; "" where there is no database. If no copy can be made, the person is told
// and asked: nothing is returned if the person would rather keep all.
[[nodiscard]] std::optional<std::string> CopyBeforeLoss(Platform& platform,
                                                        const std::string& title);

// Copies the database unless a copy of this day stands already. Returns what kept it from being
// copied, in a paragraph of its own; "" if nothing did, or if there is no database.
[[nodiscard]] std::string CopyBeforeFirstSave(Platform& platform);

}  // namespace dtb
