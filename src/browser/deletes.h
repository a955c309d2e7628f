// Deleting from the database. The grids keep their rows until the next query or opening.
#pragma once

#include "browser/browser.h"

namespace dtb {

// The three deletes ask first, then copy the database aside, delete in one transaction, and end
// with their message of completion and the way to get it back. A failure deletes nothing and is
// told. Without a copy they ask again.

// A click on a row of MSHFlexGrid9 or MSHFlexGrid10: its name goes into lbl_DEL2.
void SelectForDelete(Browser& browser, const BrowserGrid& grid, int row);

// "DELETE Matchup or Win/Loss", Command36: the record of the team, or of the pairing, in lbl_DEL2.
// Nothing happens while that is empty.
void DeleteSelected(Browser& browser);

// "Clear all Win/Loss data", Command33.
void DeleteWinLoss(Browser& browser);

// "PURGE ALL STATS", cmd_Purge: all rows of all five tables.
void PurgeAll(Browser& browser);

}  // namespace dtb
