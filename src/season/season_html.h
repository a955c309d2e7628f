// Pieces of web pages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/html_text.h"
#include "season/season_figures.h"

namespace dtb {

// "al-adams-12.html": plain small letters and digits of the name, and a number that makes it
// distinct from all others of its folder, whatever the names are.
[[nodiscard]] std::string PageFileName(std::string_view name, std::size_t number);

// A link; both texts are plain ones.
[[nodiscard]] std::string PageLink(std::string_view file, std::string_view text);

// "<h3>Home runs</h3>" and "<p>...</p>" of plain texts, a line each.
[[nodiscard]] std::string PageHeading(const char* tag, std::string_view text);
[[nodiscard]] std::string PageParagraph(std::string_view text);

// A whole page. `root` leads from its folder to that of the first page, which is called `home`: ""
// or "../". The body is markup, the other texts are plain.
[[nodiscard]] std::string WholePage(std::string_view title, std::string_view root,
                                    std::string_view body, std::string_view home = "The season");

// Texts as cells in markup.
[[nodiscard]] std::vector<std::vector<std::string>> PlainCells(
    std::vector<std::vector<std::string>> cells);

// A table of cells in markup, the header first; the first column is left-aligned and stays where it
// is when the rest scrolls. The last row may be the sum of all others.
enum class LastRow { Usual, Sum };
[[nodiscard]] std::string PageTable(const std::vector<std::vector<std::string>>& rows,
                                    LastRow last = LastRow::Usual);

// A table with its heading, to stand among others in a <div class="boards">; the title plain.
[[nodiscard]] std::string PageBoard(std::string_view title, const std::string& table);

// The places of entries that stand in order, "1", "2", "2", "4": equal ones have the same.
[[nodiscard]] std::vector<int> PlacesOf(const std::vector<std::string>& values);
// A name, in markup, behind its place.
[[nodiscard]] std::string Placed(int place, const std::string& name);

// The heading of a part of a page, the first, the second and so on, and the list of all its parts
// that stands at its top; plain texts.
[[nodiscard]] std::string PartHeading(std::size_t number, std::string_view title);
[[nodiscard]] std::string PageContents(const std::vector<std::string>& titles);

// The one style sheet of all pages: pages.css, and the lines' colours on a dark ground.
[[nodiscard]] std::string PageStyle();

}  // namespace dtb
