// The nine chart buttons, and the pages of rules and help.
#pragma once

#include "aids/aids_state.h"

namespace dtb {

// Reads the names of the buttons from the settings.
void ReadChartNames(Aids& aids);

// The picture of a chart, 0 to 8; the file may be missing.
[[nodiscard]] std::filesystem::path ChartFile(const Platform& platform, int chart);

// A click on a chart button. With a fresh Ctrl it begins to edit the name; otherwise the chart is
// to be opened, and the result is true.
[[nodiscard]] bool ClickChart(Aids& aids, int chart);

// A double click on the edit field: the button takes the name, which is stored.
void SaveChartName(Aids& aids, int chart);

// Opens a page with the system's own program. A missing page is silent.
void OpenRules(Aids& aids);
void OpenHelp(Aids& aids);

}  // namespace dtb
