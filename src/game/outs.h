// Outs on the field.
#pragma once

#include "game/board.h"
#include "game/outcome.h"

namespace dtb {

// Groundout, Flyout, Lineout, Popout: one out, the batter is out.
void RecordBatterOut(Board& board, Outcome outcome);

// The batter is out without an at-bat: a sacrifice bunt or fly.
void RecordSacrifice(Board& board);

// Two outs, the batter is one of them. `out`, here and below: see RecordOutcome. With two outs
// already it is told and refused; the log line stands.
void RecordDoublePlay(Board& board, int out);

// One out on the bases, the batter is safe and keeps his game piece. With two outs already it is
// told and refused without a log line.
void RecordFieldersChoice(Board& board, int out);

// A runner is out while the batter stays at bat: no at-bat, also when it ends the half-inning.
void RecordThrownOut(Board& board, int out);

// The person typed a third out into OUTS: after a Yes to "End the half-inning?" the half ends as
// with any third out, but no batter is out. With a No nothing changes.
void EndHalfByHand(Board& board);

}  // namespace dtb
