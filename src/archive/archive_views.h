// What the window of a season shows of it.
#pragma once

#include "archive/archive_desk.h"

namespace dtb::archive {

// Each fills its part of the state from what is kept; without a season the part is empty.
void ShowTeams(ArchiveDesk& desk);  // and what was read
void ShowGames(ArchiveDesk& desk);  // of the chosen club, and whether one is left to be played
void ShowFiles(ArchiveDesk& desk);  // of the chosen game or club
void ShowForms(ArchiveDesk& desk);  // what a form can have, or what it has wrong

// The first lines of the archive that made no sense, and what was left out of it.
[[nodiscard]] std::string FaultsText(const Season& season);

}  // namespace dtb::archive
