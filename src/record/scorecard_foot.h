// What stands below the boxes of a scorecard: the pitchers, the line score and a note; on a card
// for a pencil the bench in place of the line score.
#pragma once

#include "record/drawing.h"
#include "record/scorecard.h"

namespace dtb {

struct FootPlace {
  double left = 0;
  double width = 0;
  double bottom = 0;
};

[[nodiscard]] double FootHeight(const Scorecard& card, const FootPlace& place);
void DrawFoot(Drawing& drawing, const Scorecard& card, const FootPlace& place);

}  // namespace dtb
