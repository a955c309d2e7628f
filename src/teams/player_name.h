// The one rule that takes a player's name from a list entry.
#pragma once

#include <string>
#include <string_view>

namespace dtb {

// The part of a text before the first "=", or all of it. Nothing is trimmed.
[[nodiscard]] inline std::string PlayerNameOf(std::string_view text) {
  return std::string(text.substr(0, text.find('=')));
}

}  // namespace dtb
