// Texts in web pages.
#pragma once

#include <string>
#include <string_view>

namespace dtb {

// The text as a page shows it: <, >, &, quotes and all characters beyond ASCII as entities, so that
// it reads the same in every encoding. Bytes that are no UTF-8 stand as U+FFFD.
[[nodiscard]] std::string HtmlText(std::string_view text);

}  // namespace dtb
