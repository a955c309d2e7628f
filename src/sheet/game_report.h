// The report of a game as a page for browsers.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "game/board.h"
#include "record/season_to_date.h"

namespace dtb {

// Brings the innings of both present pitchers up to date on the sheet, for the time being, asks for
// a file, writes the page, opens it and tells where it is. After a save no innings change.
// Nothing happens while the visitors' table has no row of data, nothing more when the person names
// no file. An error while writing is told as a Program Error, and what stood in the file is
// unchanged.
//
// Below the sheet stand the box score and the story of the game, if plays are known of it. `before`
// tells what its players did before in the season; none: nothing is known of that.
using SeasonBefore = std::function<SeasonToDate(const GameRecord&)>;
void WriteGameReport(Board& board, const SeasonBefore& before = {});

// The comment as one line of a page: each of its lines with "<br>" behind it.
[[nodiscard]] std::string HtmlLines(std::string_view text);

}  // namespace dtb
