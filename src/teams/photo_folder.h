// The folder of the player photos.
#pragma once

#include "aids/edited_label.h"
#include "game/board_state.h"

namespace dtb {

// Its label and editor.
[[nodiscard]] EditedLabel PhotoFolder(BoardState& state);

}  // namespace dtb
