// The two sides of a game.
#pragma once

namespace dtb {

enum class Side { Visitors, Home };

[[nodiscard]] constexpr Side Other(Side side) {
  return side == Side::Visitors ? Side::Home : Side::Visitors;
}

}  // namespace dtb
