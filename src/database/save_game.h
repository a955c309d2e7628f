// A finished game goes into the statistics database.
#pragma once

#include <string>

#include "game/board.h"

namespace dtb {

// The click on "SAVE TO DB". While a figure is still being typed it only says so. Asks whether the
// game is over, settles the innings of the last two pitchers and appends the game to all five
// tables, and its plays, decisions and day to the four of the plays, in one transaction. The park
// is named as its picture is, "" for none. A game is saved once at most: the button goes out of
// use, but only after the database was found fit to be written. Then the person is offered a new
// game. What keeps the game from being saved is told, and then nothing has changed.
//
// Text where numbers belong is named cell by cell before anything is stored. If storing fails, by
// whatever cause, no row is kept, the sheet is as it was and the button comes back.
void SaveGame(Board& board, const std::string& park = {});

}  // namespace dtb
