#include "game/memento.h"

namespace dtb {

GameMemento Remember(const Board& board) { return {board.state, board.sheet, board.log}; }

void Restore(Board& board, const GameMemento& memento) {
  board.state = memento.state;
  board.sheet = memento.sheet;
  board.log = memento.log;
}

}  // namespace dtb
