#include "aids/charts.h"

#include "platform/paths.h"
#include "shell/program_error.h"
#include "shell/settings_keys.h"

namespace dtb {
namespace {

std::string KeyOf(int chart) { return "lbl_chrt" + std::to_string(chart + 1); }

void OpenPage(Aids& aids, const std::filesystem::path& page) {
  Trapped(aids.platform.boxes,
          [&] { aids.platform.pages.Open(TextOf(aids.platform.programFolder / page)); });
}

}  // namespace

void ReadChartNames(Aids& aids) {
  for (int chart = 0; chart < kChartButtons; ++chart) {
    aids.state.lbl_chrt.at(chart).Set(
        aids.platform.settings.Read(settings::kLabels, KeyOf(chart), ""));
  }
}

std::filesystem::path ChartFile(const Platform& platform, int chart) {
  return platform.programFolder / "Charts" / ("Chart0" + std::to_string(chart + 1) + ".jpg");
}

bool ClickChart(Aids& aids, int chart) {
  AidsState& state = aids.state;
  const bool fresh = aids.platform.keyboard.FreshlyDown(Key::Control);
  if (!fresh || state.tb_chrt_visible.at(chart).value()) return true;
  state.tb_chrt.at(chart).Set(state.lbl_chrt.at(chart).value());
  state.tb_chrt_visible.at(chart).Set(true);
  return false;
}

void SaveChartName(Aids& aids, int chart) {
  AidsState& state = aids.state;
  if (state.tb_chrt_visible.at(chart).value()) {
    state.lbl_chrt.at(chart).Set(state.tb_chrt.at(chart).value());
    state.tb_chrt_visible.at(chart).Set(false);
  }
  Trapped(aids.platform.boxes, [&] {
    aids.platform.settings.Write(settings::kLabels, KeyOf(chart), state.lbl_chrt.at(chart).value());
  });
}

void OpenRules(Aids& aids) { OpenPage(aids, std::filesystem::path("Charts") / "Rules.html"); }

void OpenHelp(Aids& aids) { OpenPage(aids, "HELP.htm"); }

}  // namespace dtb
