#include "platform/xlsx/xlsx_text.h"

#include <algorithm>
#include <cctype>

#include "shell/utf8.h"

namespace dtb::xlsx {
namespace {

constexpr std::string_view kEscapedUnderscore = "_x005F_";

// "_x0041_" is how the file format writes the character 0041.
bool LooksEscaped(std::string_view text) {
  constexpr std::size_t kLength = 7;
  return text.size() >= kLength && text[1] == 'x' && text[kLength - 1] == '_' &&
         std::all_of(text.begin() + 2, text.begin() + kLength - 1,
                     [](unsigned char c) { return std::isxdigit(c) != 0; });
}

bool IsPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](unsigned char c) { return c < 0x80 && c != '_' && c != '\0'; });
}

}  // namespace

std::string Storable(std::string_view text) {
  if (IsPlain(text)) return std::string(text);
  std::string storable;
  while (!text.empty()) {
    const Utf8Character character = FirstCharacter(text);
    // U+FFFE and U+FFFF are no characters of XML.
    const bool holdable = character.code != 0 && (character.code & ~1U) != 0xFFFE;
    if (character.code == U'_' && LooksEscaped(text)) {
      storable += kEscapedUnderscore;
    } else {
      AppendUtf8(storable, holdable ? character.code : kReplacementCharacter);
    }
    text.remove_prefix(character.bytes);
  }
  return storable;
}

std::string_view FirstCharacters(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  std::size_t units = 0;
  for (std::size_t place = 0; place < text.size(); ++place) {
    if (ContinuesCharacter(text[place])) continue;
    constexpr unsigned char kFourByteLead = 0xF0;
    units += static_cast<unsigned char>(text[place]) >= kFourByteLead ? 2 : 1;
    if (units > most) return text.substr(0, place);
  }
  return text;
}

}  // namespace dtb::xlsx
