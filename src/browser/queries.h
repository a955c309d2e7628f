// The query buttons of the browser.
#pragma once

#include <span>
#include <string>

#include "browser/browser.h"
#include "platform/database.h"

namespace dtb {

// Named after their buttons.
enum class Query : int {
  Command1,   // pitching by team
  Command2,   // pitching by player
  Command3,   // batting by team
  Command4,   // all line scores
  Command5,   // batting by player
  Command6,   // batting, aggregated; hidden
  Command7,   // batting of a player, aggregated
  Command8,   // batting of a team, aggregated
  Command9,   // batting by GameID
  Command10,  // pitching by GameID
  Command11,  // line score by GameID
  Command12,  // pitching of a team, aggregated
  Command13,  // pitching of a player, aggregated
  Command14,  // pitching, aggregated; hidden
  Command30,  // standings; hidden
  Command34,  // pairings; hidden
};

// What a window needs to know of a query's button.
struct QueryButton {
  Query query;
  const char* name;                       // "Command5"
  const char* caption;                    // "Data by player"
  bool shown;                             // hidden ones belong to the opening
  Field<std::string> BrowserState::*box;  // search text; null for none
  BrowserGrid BrowserState::*grid;
};

// All of them, in the order of Query.
[[nodiscard]] std::span<const QueryButton> QueryButtons();

// The press of a query button: its grid is shown, filled and laid out. A failure is told in one
// plain message, and the grid keeps its contents.
void RunQuery(Browser& browser, Query query);

// What the grid of a query shall hold for this text in its box, laid out. Throws ProgramError. Any
// thread may call it; once a stop is asked for, it fails soon.
[[nodiscard]] StatGrid ReadQuery(Database& database, Query query, const std::string& box,
                                 std::stop_token stop = {});

// Shows it there, and that it came of this query.
void ShowQuery(Browser& browser, Query query, const std::string& box, StatGrid&& contents);

// Tells the failure of a query.
void TellQueryFailure(Browser& browser, const std::string& description);

}  // namespace dtb
