#include "browser/bracket.h"

#include "base/program_error.h"
#include "base/settings_keys.h"
#include "platform/trapped.h"

namespace dtb {

void ForEachSlot(
    BrowserState& state,
    const std::function<void(const std::string& key, Field<std::string>& slot)>& visit) {
  const auto visitRound = [&visit](const std::string& name, auto& round) {
    int index = 0;
    for (Field<std::string>& slot : round) {
      visit(name + "(" + std::to_string(index++) + ")", slot);
    }
  };
  visitRound("lbl_Team", state.lbl_Team);
  visitRound("lbl_TeamRnd2", state.lbl_TeamRnd2);
  visitRound("lbl_TeamRnd3", state.lbl_TeamRnd3);
  visitRound("lbl_TeamRnd4", state.lbl_TeamRnd4);
  visit("lbl_Champ", state.lbl_Champ);
}

void PlaceInBracket(Browser& browser, Field<std::string>& slot) {
  slot.Set(browser.state.tb_Team.value());
}

void ResetBracket(Browser& browser) {
  if (!browser.platform.boxes.Ask({"Erase entire tournament bracket?", "Question"})) return;
  ForEachSlot(browser.state,
              [](const std::string& /*key*/, Field<std::string>& slot) { slot.Set(""); });
}

void RestoreBracket(Browser& browser) {
  ForEachSlot(browser.state, [&](const std::string& key, Field<std::string>& slot) {
    slot.Set(browser.platform.settings.Read(settings::kLabels, key, ""));
  });
}

void StoreBracket(Browser& browser) {
  Trapped(browser.platform.boxes, [&] {
    ForEachSlot(browser.state, [&](const std::string& key, Field<std::string>& slot) {
      browser.platform.settings.Write(settings::kLabels, key, slot.value());
    });
  });
}

}  // namespace dtb
