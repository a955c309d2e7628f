#include "aids/charts.h"

#include "platform/paths.h"
#include "shell/program_error.h"
#include "shell/settings_keys.h"

namespace dtb {
namespace {

void OpenPage(Aids& aids, const std::filesystem::path& page) {
  Trapped(aids.platform.boxes,
          [&] { aids.platform.pages.Open(TextOf(aids.platform.programFolder / page)); });
}

}  // namespace

EditedLabel ChartName(AidsState& state, int chart) {
  return {state.lbl_chrt.at(chart), state.tb_chrt.at(chart), state.tb_chrt_visible.at(chart),
          "lbl_chrt" + std::to_string(chart + 1)};
}

void ReadChartNames(Aids& aids) {
  for (int chart = 0; chart < kChartButtons; ++chart) {
    const EditedLabel name = ChartName(aids.state, chart);
    name.label.Set(aids.platform.settings.Read(settings::kLabels, name.key, ""));
  }
}

std::filesystem::path ChartFile(const Platform& platform, int chart) {
  return platform.programFolder / "Charts" / ("Chart0" + std::to_string(chart + 1) + ".jpg");
}

void OpenRules(Aids& aids) { OpenPage(aids, std::filesystem::path("Charts") / "Rules.html"); }

void OpenHelp(Aids& aids) { OpenPage(aids, "HELP.htm"); }

}  // namespace dtb
