// The next game of a season, without the window of the season.
#pragma once

#include <string>

#include "seasons/season_desk.h"

namespace dtb::seasons {

// "Next game of Oakland 2020", the club that was chosen, or "Next game of the season". "" where no
// season was read in this run, or none of its games is left.
[[nodiscard]] std::string NextGameOffer(Board& board, KeptSeason& kept);

// Loads both teams of that game. False: they are not on the board, which was told.
bool LoadNextGame(Board& board, KeptSeason& kept);

}  // namespace dtb::seasons
