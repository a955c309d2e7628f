// A finished game goes into the statistics database.
#pragma once

#include "game/board.h"

namespace dtb {

// The click on "SAVE TO DB". Asks whether the game is over, settles the innings of the last two
// pitchers and appends the game to all five tables. A game is saved once at most: the button goes
// out of use, but only after the database was found fit to be written. What keeps the game from
// being saved is told, and then nothing has changed.
//
// A row that the database refuses ends the save: the rows before it stay, and the person is told
// which tables have the game. If storing fails altogether, no row is kept and the button comes
// back.
void SaveGame(Board& board);

}  // namespace dtb
