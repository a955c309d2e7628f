#include "base/fixed_text.h"

#include <algorithm>

#include "base/utf8.h"

namespace dtb {

std::size_t LettersIn(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char byte) { return !ContinuesCharacter(byte); }));
}

std::string_view FirstLetters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  while (end < text.size() && (count > 0 || ContinuesCharacter(text[end]))) {
    if (!ContinuesCharacter(text[end])) --count;
    ++end;
  }
  while (end < text.size() && ContinuesCharacter(text[end])) ++end;
  return text.substr(0, end);
}

std::string Left(std::string_view text, std::size_t width) {
  std::string left(FirstLetters(text, width));
  return left.append(width - std::min(width, LettersIn(left)), ' ');
}

std::string Right(std::string_view text, std::size_t width) {
  const std::size_t letters = LettersIn(text);
  return std::string(width - std::min(width, letters), ' ').append(text);
}

}  // namespace dtb
