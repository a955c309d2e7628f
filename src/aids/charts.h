// The nine chart buttons, and the pages of rules and help.
#pragma once

#include "aids/aids_state.h"
#include "shell/edited_label.h"

namespace dtb {

// Name and editor of a chart button, 0 to 8.
[[nodiscard]] EditedLabel ChartName(AidsState& state, int chart);

// Reads the names of the buttons from the settings.
void ReadChartNames(Aids& aids);

// The picture of a chart, 0 to 8; the file may be missing.
[[nodiscard]] std::filesystem::path ChartFile(const Platform& platform, int chart);

// Opens a page with the system's own program. A missing page is silent.
void OpenRules(Aids& aids);
void OpenHelp(Aids& aids);

}  // namespace dtb
