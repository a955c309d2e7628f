// A line on the sheet for a player who was typed into the line-up.
#pragma once

#include <string>

#include "game/board.h"

namespace dtb {

// Gives the player the first line without a name in his side's table of batters, unless he has one,
// and tells it in a notice. Once all 49 lines are taken he stays without one.
void GiveSheetLine(Board& board, Side side, const std::string& name);

// The mark that the player takes part in the game. Nothing happens where he has no line.
void MarkPlayed(Board& board, Side side, const std::string& name);

}  // namespace dtb
