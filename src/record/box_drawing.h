// One box of the scorecard.
#pragma once

#include "record/drawing.h"
#include "record/scorecard.h"

namespace dtb {

struct BoxPlace {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

// The faint diamond of a box that a pencil may fill.
void DrawEmptyDiamond(Drawing& drawing, const BoxPlace& place);

// The sign at the upper left, the dots of the runs batted in below it, the number of the out in its
// circle at the lower left; the way of the runner around the diamond, which is filled where he
// scored, with a bar where he was put out; "SB" at what he stole; the slash of the last box in the
// lower right corner; a bar along the top where a new pitcher came, along the left where a
// substitute did.
void DrawBox(Drawing& drawing, const BoxPlace& place, const ScoreBox& box);

// Adds a text, cut where it has no room.
void DrawText(Drawing& drawing, DrawnText text, double room);

}  // namespace dtb
