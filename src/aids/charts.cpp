#include "aids/charts.h"

#include <sstream>

#include "base/decoded_text.h"
#include "base/paths.h"
#include "base/program_error.h"
#include "base/settings_keys.h"
#include "base/whole_file.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

void OpenPage(Aids& aids, const std::filesystem::path& page) {
  Trapped(aids.platform.boxes,
          [&] { aids.platform.pages.Open(TextOf(aids.platform.programFolder / page)); });
}

// One line a chart.
void ReadTitles(Aids& aids) {
  constexpr std::size_t kMostBytes = 4096;  // nine lines are far shorter
  const auto file = aids.platform.programFolder / "Charts" / "Titles.txt";
  std::istringstream lines(DecodedText(ReadWholeFile(file, kMostBytes).value_or("")));
  for (std::string& title : aids.state.chartTitles) {
    std::getline(lines, title);
    while (!title.empty() && (title.back() == ' ' || title.back() == '\r')) title.pop_back();
  }
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
  ReadTitles(aids);
}

std::string ChartHint(const AidsState& state, int chart) {
  const std::string& title = state.chartTitles.at(static_cast<std::size_t>(chart));
  return title.empty() ? "Chart " + std::to_string(chart + 1) : title;
}

std::string ChartCaption(const AidsState& state, int chart) {
  const std::string& name = state.lbl_chrt.at(static_cast<std::size_t>(chart)).value();
  return name.empty() ? ChartHint(state, chart) : name;
}

std::filesystem::path ChartFile(const Platform& platform, int chart) {
  return platform.programFolder / "Charts" / ("Chart0" + std::to_string(chart + 1) + ".jpg");
}

void OpenRules(Aids& aids) { OpenPage(aids, std::filesystem::path("Charts") / "Rules.html"); }

void OpenHelp(Aids& aids) { OpenPage(aids, "HELP.htm"); }

}  // namespace dtb
