// A whole game as one plain value.
#pragma once

#include "game/board.h"

namespace dtb {

// Everything that a game consists of: board, sheet and event log. Equal games compare equal.
struct GameMemento {
  BoardState state;
  StatSheet sheet;
  EventLog log;
  friend bool operator==(const GameMemento&, const GameMemento&) = default;
};

[[nodiscard]] GameMemento Remember(const Board& board);

// Puts a remembered game back in silence: what shows the fields hears of it, no rule runs.
void Restore(Board& board, const GameMemento& memento);

}  // namespace dtb
