// The decisions that stand on the sheet: as they are proposed, or as the person has them.
#pragma once

#include <vector>

#include "game/board.h"
#include "record/game_record.h"

namespace dtb {

// The proposal, with each kind of decision that the person has chosen in place of its own.
// Players who are no pitchers of the side any more have none.
[[nodiscard]] std::vector<PitcherDecision> DecisionsOnSheet(const StatSheet& sheet,
                                                            const GameRecord& game);

// The person says who has this kind of decision: nobody, one pitcher, or several for holds and
// blown saves. One step of the history; refused, and told, once the game is saved.
void ChooseDecision(Board& board, Decision kind, const std::vector<PitcherDecision>& chosen);

// All decisions are as they are proposed again. As above.
void ProposeDecisionsAgain(Board& board);

}  // namespace dtb
