// The position of a player, as his entry in a team file tells it.
#pragma once

#include <string>
#include <string_view>

namespace dtb {

// "SS" of "Tony Kubek=SS L .288": the first word behind the name, if it is a position. "" where it
// is none, and where it is a count, as in "2B 21 3B 8".
[[nodiscard]] std::string PositionIn(std::string_view entry);

}  // namespace dtb
