#include "game/memento.h"

namespace dtb {

GameMemento Remember(const Board& board) { return {board.state, board.sheet, board.log}; }

void Restore(Board& board, const GameMemento& memento) {
  // First whose runners they are: the pieces show each as he comes.
  board.state.BasesHalf = memento.state.BasesHalf;
  board.state = memento.state;
  board.sheet = memento.sheet;
  board.log = memento.log;
}

}  // namespace dtb
