// What a scorecard takes from the line-ups on the board.
#pragma once

#include "record/scorecard.h"

namespace dtb {

// The game on the board, with the order as it stands in the line-ups: also those who have not come
// up yet have their places, and the pitchers who were named are known.
[[nodiscard]] GameRecord RecordWithLineups(Board& board);

// A card without figures, for a pencil: the order, who waits on the bench, and the pitcher of the
// other side, as they stand on the board.
[[nodiscard]] Scorecard EmptyScorecard(Board& board, Side side);

}  // namespace dtb
