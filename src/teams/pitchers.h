// The current pitcher of each side.
#pragma once

#include <string>

#include "game/board.h"

namespace dtb {

// Double click on the side's pitcher label: the player of the selected row becomes its pitcher. He
// gets a row of the pitcher block unless he has one, and one of the batters' too; the innings of
// the side in the field are settled; the list goes back to the batting order. Without a selection
// nothing happens. When all 49 rows are taken he pitches without a row.
void ChangePitcher(Board& board, Side side);

// The same for the player of that name, whatever is selected, as a part of the caller's step.
void NamePitcher(Board& board, Side side, const std::string& name);

// As before the side's first pitcher was named; only for a game that is not under way, in which no
// pitcher has figures.
void TakeOffPitcher(Board& board, Side side);

// Writes a pitcher's name into a free row. Innings that were waiting there are nobody's, and go.
void EnterPitcher(StatGrid& grid, int row, const std::string& name);

// Keeps the photos of both pitchers in step with their files. Runs ten times a second.
void RefreshPitcherPhotos(Board& board);

}  // namespace dtb
