// What the window of a season shows of it.
#pragma once

#include "seasons/season_desk.h"

namespace dtb::seasons {

// Each fills its part of the state from what is kept; without a season the part is empty.
void ShowTeams(SeasonDesk& desk);  // and what was read
void ShowGames(SeasonDesk& desk);  // of the chosen club, and whether one is left to be played
void ShowFiles(SeasonDesk& desk);  // of the chosen game or club
void ShowForms(SeasonDesk& desk);  // what a form can have, or what it has wrong

// The first lines of the archive that made no sense, and what was left out of it.
[[nodiscard]] std::string FaultsText(const Season& season);

}  // namespace dtb::seasons
