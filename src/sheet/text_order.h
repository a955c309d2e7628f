// How texts are matched where the case of letters does not count.
#pragma once

#include <string>
#include <string_view>

namespace dtb {

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
