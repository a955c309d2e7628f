// The plays in words.
#pragma once

#include <string>

#include "game/plays.h"

namespace dtb {

// "first", "second", "third"; "home".
[[nodiscard]] const char* BaseName(int base);

// "Varrow doubles, Hathersby scores from first"
[[nodiscard]] std::string PlayInWords(const Play& play);

// "Top 3, 1 out: Varrow doubles, Hathersby scores from first"
[[nodiscard]] std::string PlayWithInning(const Play& play);

}  // namespace dtb
