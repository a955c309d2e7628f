// The one rule that takes a player's name from a list entry.
#pragma once

#include <string>
#include <string_view>

namespace dtb {

// The part of a text before the first "=", or all of it. Nothing is trimmed.
[[nodiscard]] inline std::string PlayerNameOf(std::string_view text) {
  return std::string(text.substr(0, text.find('=')));
}

// What a player is called where the whole name has no room: "Kubek" of "Tony Kubek", "Griffey Jr."
// of "Ken Griffey Jr.", "La Stella" of "Tommy La Stella", "Maris" of "Maris, Roger". A name of one
// word stays.
[[nodiscard]] std::string LastNameOf(std::string_view name);

}  // namespace dtb
