// Texts of files in whatever encoding a person's editor wrote.
#pragma once

#include <string>

namespace dtb {

// The bytes of a text file as UTF-8: what is no UTF-8 is Windows-1252, or UTF-16 behind its mark.
[[nodiscard]] std::string DecodedText(std::string bytes);

}  // namespace dtb
