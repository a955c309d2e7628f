// How texts are compared and matched where the case of letters does not count.
#pragma once

#include <string>
#include <string_view>

namespace dtb {

// The small letter of a Latin, Greek or Cyrillic capital; any other character itself. One letter
// for one: "ß" stays, and no letter loses its accent.
[[nodiscard]] char32_t SmallLetter(char32_t letter);

// The order of names in lists: by letters, without regard to case or to the accents of Latin
// letters. Negative, 0 or positive, as the first text stands before, beside or behind the second.
[[nodiscard]] int CompareNames(std::string_view first, std::string_view second);

// A pattern of the operator LIKE: "%" stands for any text, "_" for one character, the case of
// letters does not count, and a character behind the escape stands for itself.
class LikePattern {
 public:
  static constexpr char32_t kNoEscape = 0;
  explicit LikePattern(std::string_view pattern, char32_t escape = kNoEscape);

  // Takes time in proportion to the text times the pattern at worst.
  [[nodiscard]] bool Matches(std::string_view text) const;

 private:
  static constexpr char32_t kAnyText = 0x110000;  // beyond all characters
  static constexpr char32_t kAnyCharacter = 0x110001;
  std::u32string marks_;
};

// A text as part of a pattern that matches this text alone, with the escape "\".
[[nodiscard]] std::string EscapedForLike(std::string_view text);

}  // namespace dtb
