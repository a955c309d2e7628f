// The folder of the player photos and its editor.
#pragma once

#include "game/board.h"

namespace dtb {

// A click on the folder's label: with Ctrl freshly pressed its editor opens.
void ClickPhotoPath(Board& board);

// Double click on the editor: the folder is taken over and stored for the next runs. A store that
// cannot be written is told; the folder holds for this run then.
void SavePhotoPath(Board& board);

}  // namespace dtb
