// Whether the confirmations of a game hold the person up.
#pragma once

#include "aids/aids_state.h"

namespace dtb {

// Reads the choice from the settings; at first confirmations are boxes.
void ReadQuickBoxes(Aids& aids);

// The check box "QUICK BOXES" was clicked: the choice holds at once and for good. Reports settings
// that cannot be written; then it holds until the program ends.
void QuickBoxesClicked(Aids& aids);

}  // namespace dtb
