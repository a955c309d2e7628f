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
  // A plain letter of the pattern may also find those with accents.
  enum class Accents { Count, AreFound };
  explicit LikePattern(std::string_view pattern, char32_t escape = kNoEscape,
                       Accents accents = Accents::Count);

  // Takes time in proportion to the text times the pattern at worst.
  [[nodiscard]] bool Matches(std::string_view text) const;

 private:
  static constexpr char32_t kAnyText = 0x110000;  // beyond all characters
  static constexpr char32_t kAnyCharacter = 0x110001;
  [[nodiscard]] bool Fits(char32_t mark, char32_t character) const;

  std::u32string marks_;
  bool findsAccents_;
};

// A text as part of a pattern that matches this text alone, with the escape "\".
[[nodiscard]] std::string EscapedForLike(std::string_view text);

}  // namespace dtb
