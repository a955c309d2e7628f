// Archives, clubs and games in the window of an archive: what is listed, and what is chosen.
#pragma once

#include <filesystem>
#include <optional>

#include "archive/archive_desk.h"

namespace dtb::archive {

// The window opens: forms come from the settings, and a season that is kept is shown.
void OpenArchiveDesk(ArchiveDesk& desk);

// The archive of the last run, if it is still there and nothing is kept.
[[nodiscard]] std::optional<std::filesystem::path> LastArchive(const ArchiveDesk& desk);

// Ask for a zip or a folder; nothing if the person cancels.
[[nodiscard]] std::optional<std::filesystem::path> ChooseZip(ArchiveDesk& desk);
[[nodiscard]] std::optional<std::filesystem::path> ChooseFolder(ArchiveDesk& desk);

// Reads an archive in place of what is kept, with the club that was chosen last if it has that;
// after a fault, and when `goOn` says false, what is kept stays.
void ReadArchive(ArchiveDesk& desk, const std::filesystem::path& archive, const GoOn& goOn);

// Shows the lines of the archive that made no sense, and what was left out.
void ShowFaults(ArchiveDesk& desk);

// A row of the lists is selected; rows that do not exist are nothing.
void SelectTeam(ArchiveDesk& desk, int row);
void SelectGame(ArchiveDesk& desk, int row);
// Back from a game, or the other nine, to this one of the chosen club.
void SelectNine(ArchiveDesk& desk, SeasonNine nine);

}  // namespace dtb::archive
