// The gestures that record one play of the archive.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "plays/base_board.h"
#include "plays/game_events.h"

namespace dtb::plays {

// Says each gesture to the board in turn; `out` is the base of an OUT behind it.
using Say = std::function<void(const std::string& gesture, std::optional<int> out)>;

// Records a play of the batter who is up. Throws NotPossible, or std::runtime_error for a kind of
// play that the gestures do not have.
void RecordPlay(const Event& event, const BaseBoard& board, const Say& say);

}  // namespace dtb::plays
