// The folder of the player photos.
#pragma once

#include "game/board.h"
#include "shell/edited_label.h"

namespace dtb {

// Its label and editor.
[[nodiscard]] EditedLabel PhotoFolder(BoardState& state);

// Lets the person choose that folder in a dialog, for good; cancelling changes nothing. An edit in
// progress ends without its text. Reports settings that cannot be written.
void ChoosePhotoFolder(Board& board);

}  // namespace dtb
