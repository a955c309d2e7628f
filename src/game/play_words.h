// The plays in words.
#pragma once

#include <string>

#include "game/plays.h"

namespace dtb {

// "first", "second", "third"; "home".
[[nodiscard]] const char* BaseName(int base);

// "Varrow doubles, Hathersby scores from first"
[[nodiscard]] std::string PlayInWords(const Play& play);

// "Varrow 2B, Hathersby scores": for a glance, without who only moves.
[[nodiscard]] std::string PlayInShort(const Play& play);

// Where a player went in a play: "Hathersby scores from first, batted in by Varrow"; "" where he
// did not move.
[[nodiscard]] std::string MoveInWords(const Play& play, const std::string& name);

// "Top 3, 1 out: Varrow doubles, Hathersby scores from first"
[[nodiscard]] std::string PlayWithInning(const Play& play);

}  // namespace dtb
