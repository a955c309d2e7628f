#include "base/utf8.h"

namespace dtb {

void AppendUtf8(std::string& text, char32_t code) {
  const auto add = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (code < 0x80) {
    add(code);
  } else if (code < 0x800) {
    add(0xC0 | (code >> 6U));
    add(0x80 | (code & 0x3FU));
  } else if (code < 0x10000) {
    add(0xE0 | (code >> 12U));
    add(0x80 | ((code >> 6U) & 0x3FU));
    add(0x80 | (code & 0x3FU));
  } else {
    add(0xF0 | (code >> 18U));
    add(0x80 | ((code >> 12U) & 0x3FU));
    add(0x80 | ((code >> 6U) & 0x3FU));
    add(0x80 | (code & 0x3FU));
  }
}

// The limits of the second byte are those of the Unicode standard, table 3-7.
std::size_t Utf8SequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return 1;
  std::size_t length = 0;
  if (first >= 0xC2 && first <= 0xDF) length = 2;
  if (first >= 0xE0 && first <= 0xEF) length = 3;
  if (first >= 0xF0 && first <= 0xF4) length = 4;
  if (length == 0 || text.size() < length) return 0;
  unsigned char lowest = 0x80;
  unsigned char highest = 0xBF;
  if (first == 0xE0) lowest = 0xA0;
  if (first == 0xED) highest = 0x9F;
  if (first == 0xF0) lowest = 0x90;
  if (first == 0xF4) highest = 0x8F;
  if (byte(1) < lowest || byte(1) > highest) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!ContinuesCharacter(text[i])) return 0;
  }
  return length;
}

Utf8Character FirstCharacter(std::string_view text) {
  const std::size_t length = Utf8SequenceLength(text);
  if (length == 0) return {kReplacementCharacter, 1};
  const auto lead = static_cast<unsigned char>(text.front());
  if (length == 1) return {lead, 1};
  char32_t code = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    code = code << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  return {code, length};
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = Utf8SequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace dtb
