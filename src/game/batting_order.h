// Who bats, who follows him, and who is due.
#pragma once

#include <optional>
#include <string>

#include "game/board.h"

namespace dtb {

// The row that follows in the batting order: after the ninth line, and after the last line of a
// shorter list, comes the first.
[[nodiscard]] int NextInOrder(const LineupList& list, int row);

// The row of the current batter, while the side is at bat: he was chosen since the last third out
// and stands in the first nine. The highlight of the list may be elsewhere.
[[nodiscard]] std::optional<int> RowOfBatter(Board& board, Side side);

// The first row of a list that has this player.
[[nodiscard]] std::optional<int> RowOfPlayer(const LineupList& list, const std::string& name);

// While the side is at bat and RowOfBatter is none: the row of the player who is due. That is the
// one behind its last batter, the first row in its first half-inning, the same player again whose
// turn a runner's out has cut short, and the one who stands in place of a batter who has left
// the order.
[[nodiscard]] std::optional<int> RowOfBatterDue(Board& board, Side side);

// The row from which the order of the side goes on: that of the batter, else the one that is due.
// It need not exist in an empty list.
[[nodiscard]] int PlaceInOrder(Board& board, Side side);

// The player of a row, without his remark; "" for a row that does not exist.
[[nodiscard]] std::string PlayerAt(const LineupList& list, int row);

// Brings the batter of the side at bat: whoever is due becomes the batter, also while EDIT is on,
// which it turns off. Where somebody bats already, only the highlight goes back to him. Without a
// side at bat, or a player in that row, nothing happens.
void ChooseBatterDue(Board& board);

// A third out: nobody bats any more. The batter's place is noted, so that his side goes on behind
// him, or with him where his turn was cut short. Without a batter nothing happens.
void RetireBatter(Board& board, bool turnIsOver);

// The highlight of the list goes to the batter, or to the row that last was one. Nobody is named.
void HighlightPlaceInOrder(Board& board, Side side);

}  // namespace dtb
