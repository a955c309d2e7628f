// A substitute who comes in for a player on the field: he runs for a runner, or bats for the
// batter.
#pragma once

#include <string>
#include <vector>

#include "game/board.h"
#include "game/memento.h"

namespace dtb {

// What came of it, or why it cannot be: "Ott runs for Lowndes", "Ott bats for Lowndes". It can be
// where the side is at bat, the player of the row waits behind the ninth, and the player on the
// piece stands in the order.
struct Replacement {
  bool possible = false;
  std::string words;
};
[[nodiscard]] Replacement ReplacementOn(Board& board, Side side, int row, int piece);

// The pieces, 0 to 3, on which the player of a row can come in.
[[nodiscard]] std::vector<int> PiecesToComeInOn(Board& board, Side side, int row);

// The player of the row comes in for the player on a piece: they change places in the line-up, the
// piece is his, and he counts as having played, on a new line of the sheet if he has none. Who bats
// and who is due stays; only where the player was the batter, the other bats for him. Tells why it
// cannot be, and then nothing changes.
void ComeIn(Board& board, Side side, int row, int piece);

// Any player of the list begins on an empty base, 1 to 3; see PutOnBase. He counts as having
// played. The press that began his drag may have made him the batter: `before` is the game before
// it, and both are one step.
void BeginOnBase(Board& board, Side side, int row, int base, const GameMemento& before);

}  // namespace dtb
