// The folder of the player photos.
#pragma once

#include "game/board_state.h"
#include "shell/edited_label.h"

namespace dtb {

// Its label and editor.
[[nodiscard]] EditedLabel PhotoFolder(BoardState& state);

}  // namespace dtb
