// Texts of so many letters, for fixed columns. A letter is a character, whatever its bytes.
#pragma once

#include <string>
#include <string_view>

namespace dtb {

[[nodiscard]] std::size_t LettersIn(std::string_view text);

// The first letters of a text, as many as there are.
[[nodiscard]] std::string_view FirstLetters(std::string_view text, std::size_t count);

// On the left of so many letters, cut if it has more.
[[nodiscard]] std::string Left(std::string_view text, std::size_t width);
// On the right of so many letters, or whole if it has more.
[[nodiscard]] std::string Right(std::string_view text, std::size_t width);

}  // namespace dtb
