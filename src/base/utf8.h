// The characters of UTF-8 texts. Any thread may call these functions, several at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dtb {

// Stands for what is no character.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

struct Utf8Character {
  char32_t code = 0;
  std::size_t bytes = 0;
};

// True for the second and later bytes of a character.
[[nodiscard]] constexpr bool ContinuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// The length of the UTF-8 sequence at the start of a text that is not empty; 0 if there is none.
[[nodiscard]] std::size_t Utf8SequenceLength(std::string_view text);

[[nodiscard]] bool IsUtf8(std::string_view text);

// The character at the start of a text that is not empty. A byte that belongs to none is a
// replacement character of one byte.
[[nodiscard]] Utf8Character FirstCharacter(std::string_view text);

// Half a pair of UTF-16 and what lies beyond Unicode become a replacement character.
void AppendUtf8(std::string& text, char32_t code);

}  // namespace dtb
