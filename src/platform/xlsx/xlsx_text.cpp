#include "platform/xlsx/xlsx_text.h"

#include <algorithm>
#include <cctype>

#include "base/utf8.h"

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

StorableText Storable(std::string_view text, std::size_t most) {
  if (text.size() <= most && IsPlain(text)) return {std::string(text)};
  StorableText storable;
  std::size_t units = 0;
  while (!text.empty()) {
    const Utf8Character character = FirstCharacter(text);
    const bool escaped = character.code == U'_' && LooksEscaped(text);
    units += escaped ? kEscapedUnderscore.size() : character.code > 0xFFFF ? 2 : 1;
    if (units > most) {
      storable.whole = false;
      break;
    }
    // U+FFFE and U+FFFF are no characters of XML.
    const bool holdable = character.code != 0 && (character.code & ~1U) != 0xFFFE;
    if (escaped) {
      storable.text += kEscapedUnderscore;
    } else {
      AppendUtf8(storable.text, holdable ? character.code : kReplacementCharacter);
    }
    text.remove_prefix(character.bytes);
  }
  return storable;
}

}  // namespace dtb::xlsx
