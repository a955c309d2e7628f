// Hits, walks and strikeouts: what a batter did against the pitcher.
#pragma once

#include "game/board.h"
#include "game/outcome.h"

namespace dtb {

// Records one of Single, Double, Triple, Homer, Walk and Strikeout: gate, log line, the batter's
// column, then the tail of its family. A batter or pitcher without a row ends it silently at that
// step.
void RecordPlateAppearance(Board& board, Outcome outcome);

// The tails. Each raises a column of the pitcher of record; without his row it ends there.
void AssignHit(Board& board);  // hits allowed, team hits, box, at-bat, next batter
void AssignHR(Board& board);   // home runs allowed
void AssignK(Board& board);    // strikeouts, one out, box
void AssignBB(Board& board);   // next batter first, then walks allowed, box

}  // namespace dtb
