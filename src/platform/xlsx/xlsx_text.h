// Texts as a workbook file can hold them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dtb::xlsx {

struct StorableText {
  std::string text;
  bool whole = true;  // nothing was cut off
};

// The start of a text, with at most so many characters as spreadsheet programs count them, in units
// of UTF-16. What XML cannot hold, each byte that is no UTF-8 and each noncharacter, stands as
// U+FFFD. What spreadsheet programs would read as an escaped character ("_x0041_") is escaped
// itself. Control characters stay; libxlsxwriter escapes those.
[[nodiscard]] StorableText Storable(std::string_view text, std::size_t most);

}  // namespace dtb::xlsx
