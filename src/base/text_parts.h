// Texts of parts with a sign between them, such as lines and columns.
#pragma once

#include <algorithm>
#include <string_view>

namespace dtb {

// Takes off what stands before the first such sign, and the sign; without one, the whole text.
// Returns what it took, without the sign.
[[nodiscard]] inline std::string_view TakeUpTo(std::string_view& text, char sign) {
  const std::string_view part = text.substr(0, text.find(sign));
  text.remove_prefix(std::min(part.size() + 1, text.size()));
  return part;
}

}  // namespace dtb
