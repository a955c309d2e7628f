// The tournament bracket: 31 texts that the user places by hand.
#pragma once

#include <functional>
#include <string>

#include "browser/browser.h"

namespace dtb {

// Calls the visitor for every slot with its settings key, "lbl_Team(0)" to "lbl_Champ", in order.
void ForEachSlot(
    BrowserState& state,
    const std::function<void(const std::string& key, Field<std::string>& slot)>& visit);

// A click on a slot: it takes the text of tb_Team, empty or not.
void PlaceInBracket(Browser& browser, Field<std::string>& slot);

// "RESET", cmd_Reset: empties all slots after a question. The stored bracket changes at closing.
void ResetBracket(Browser& browser);

// Reads all slots from the settings.
void RestoreBracket(Browser& browser);

// Writes all slots to the settings, empty ones too. A failure is told once.
void StoreBracket(Browser& browser);

}  // namespace dtb
