// Drawings as SVG.
#pragma once

#include <string>
#include <vector>

#include "record/drawing.h"

namespace dtb {

// A whole SVG file with its pages one below the other. There must be one at least.
[[nodiscard]] std::string SvgFile(const std::vector<Drawing>& pages, Dress dress);

// The same as a part of a web page, as wide as its place there.
[[nodiscard]] std::string SvgOfPage(const std::vector<Drawing>& pages, Dress dress);

}  // namespace dtb
