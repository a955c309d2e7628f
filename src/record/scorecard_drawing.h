// The scorecard as a drawing.
#pragma once

#include <vector>

#include "record/drawing.h"
#include "record/scorecard.h"

namespace dtb {

// A page as it lies before the reader, in points.
struct PageSize {
  double width = 0;
  double height = 0;
};
inline constexpr PageSize kA4Landscape{842, 595};
inline constexpr PageSize kLetterLandscape{792, 612};

// The card on pages of that size, which must be at least as large as half of A4. Type is never
// below 6.5 points: a game with more innings than have room goes on on further pages, each with the
// names and the sums.
[[nodiscard]] std::vector<Drawing> DrawScorecard(const Scorecard& card, PageSize page);

}  // namespace dtb
