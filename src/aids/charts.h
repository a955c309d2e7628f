// The nine chart buttons, and the pages of rules and help.
#pragma once

#include "aids/aids_state.h"
#include "aids/edited_label.h"

namespace dtb {

// Name and editor of a chart button, 0 to 8.
[[nodiscard]] EditedLabel ChartName(AidsState& state, int chart);

// Reads the names of the buttons from the settings, and the titles of the charts, one a line, from
// the file Titles.txt beside them. A missing file and missing lines are no titles.
void ReadChartNames(Aids& aids);

// What the chart is called, 0 to 8: the person's name for its button, else its title, else
// "Chart 1".
[[nodiscard]] std::string ChartCaption(const AidsState& state, int chart);
// What the button shows, dimly, as long as the person has not named it.
[[nodiscard]] std::string ChartHint(const AidsState& state, int chart);

// The picture of a chart, 0 to 8; the file may be missing.
[[nodiscard]] std::filesystem::path ChartFile(const Platform& platform, int chart);

// Opens a page with the system's own program. A missing page is silent.
void OpenRules(Aids& aids);
void OpenHelp(Aids& aids);

}  // namespace dtb
