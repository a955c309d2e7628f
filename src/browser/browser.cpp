#include "browser/browser.h"

#include <array>
#include <string>

#include "browser/bracket.h"
#include "browser/queries.h"

namespace dtb {
namespace {

constexpr std::array kAtOpening{Query::Command1,  Query::Command2, Query::Command4,
                                Query::Command5,  Query::Command6, Query::Command14,
                                Query::Command30, Query::Command34};

// Runs the queries and returns what went wrong, each fault once. When the database is out of reach
// the rest is not tried.
std::string LoadAll(Browser& browser, const Progress& progress) {
  std::string faults;
  int done = 0;
  for (const Query query : kAtOpening) {
    try {
      LoadQuery(browser, query);
    } catch (const DatabaseOutOfReach& fault) {
      return fault.what();
    } catch (const ProgramError& fault) {
      const std::string description = fault.what();
      if (faults.find(description) == std::string::npos) {
        faults += (faults.empty() ? "" : "\n\n") + description;
      }
    }
    if (progress) progress(++done, static_cast<int>(kAtOpening.size()));
  }
  return faults;
}

}  // namespace

void OpenBrowser(Browser& browser, const Progress& progress) {
  BrowserState& state = browser.state;
  state.SSTab1.Set(browser_tab::kLineScores);
  const std::string faults = LoadAll(browser, progress);
  StatGrid& lineScores = state.MSHFlexGrid1.grid;
  if (lineScores.columns() > line_score_column::kGameID) {
    lineScores.SetColumnInk(line_score_column::kGameID, kClickableBlue);
  }
  RestoreBracket(browser);
  if (!faults.empty()) TellQueryFailure(browser, faults);
}

void CloseBrowser(Browser& browser) { StoreBracket(browser); }

}  // namespace dtb
