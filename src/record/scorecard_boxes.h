// The boxes of a scorecard, filled play by play.
#pragma once

#include "record/scorecard.h"

namespace dtb {

// Fills the places, the boxes without their columns, and the sums of the innings but for the runs.
// The card's side must be set.
void FillBoxes(const GameRecord& game, Scorecard& card);

}  // namespace dtb
