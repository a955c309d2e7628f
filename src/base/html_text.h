// Texts in web pages.
#pragma once

#include <string>
#include <string_view>

namespace dtb {

// The text as a page shows it: <, >, &, quotes and all characters beyond ASCII as entities, so that
// it reads the same in every encoding. Bytes that are no UTF-8 stand as U+FFFD.
[[nodiscard]] std::string HtmlText(std::string_view text);

// The same as any page or picture of lines may show it: what is no character of a page stands as
// U+FFFD, all marks and all that is not plain as entities.
[[nodiscard]] std::string PageText(std::string_view text);

}  // namespace dtb
