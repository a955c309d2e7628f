// The report of a game as a page for browsers.
#pragma once

#include <string>
#include <string_view>

#include "game/board.h"

namespace dtb {

// Brings the innings of both present pitchers up to date on the sheet, for the time being, asks for
// a file, writes the page, opens it and tells where it lies. After a save no innings change.
// Nothing happens while the visitors' table has no row of data, nothing more when the person names
// no file. An error while writing is told as a Program Error, and what stood in the file is
// unchanged.
void WriteGameReport(Board& board);

// The comment as one line of a page: each of its lines with "<br>" behind it.
[[nodiscard]] std::string HtmlLines(std::string_view text);

}  // namespace dtb
