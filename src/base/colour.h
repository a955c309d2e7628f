// Colours that carry meaning on the board and the sheet.
#pragma once

#include <cstdint>

namespace dtb {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  friend bool operator==(const Colour&, const Colour&) = default;
};

inline constexpr Colour kWhite{255, 255, 255};
// A half-inning that is not finished, and all that belongs to the side in the field.
inline constexpr Colour kGrey{192, 192, 192};
// A finished half-inning: three outs for the pitcher of the other side.
inline constexpr Colour kFinishedYellow{255, 255, 0};
// An occupied base of the base tracker.
inline constexpr Colour kOccupiedGreen{0, 255, 0};

}  // namespace dtb
