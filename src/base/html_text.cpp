#include "base/html_text.h"

#include <algorithm>

#include "base/utf8.h"

namespace dtb {
namespace {

// Pages may hold no control characters, and none that Unicode keeps for no character at all.
bool StandsOnPages(char32_t code) {
  constexpr char32_t kFirstPrintable = 0x20;
  constexpr char32_t kPlane = 0x10000;
  constexpr char32_t kLastTwo = 0xFFFE;
  if (code < kFirstPrintable) return false;
  return (code < 0xFDD0 || code > 0xFDEF) && code % kPlane < kLastTwo;
}

}  // namespace

std::string HtmlText(std::string_view text) {
  std::string page;
  while (!text.empty()) {
    const Utf8Character character = FirstCharacter(text);
    text.remove_prefix(character.bytes);
    constexpr std::string_view kMarks = "<>&\"'";
    constexpr char32_t kLastAscii = 0x7E;
    constexpr char32_t kFirstBeyondControls = 0xA0;
    char32_t code = character.code;
    // Browsers read the numbers 128 to 159 as characters of an old code page.
    if (code == 0 || (code > kLastAscii && code < kFirstBeyondControls)) {
      code = kReplacementCharacter;
    }
    if (code <= kLastAscii && kMarks.find(static_cast<char>(code)) == std::string_view::npos) {
      page += static_cast<char>(code);
    } else {
      page += "&#" + std::to_string(static_cast<unsigned>(code)) + ';';
    }
  }
  return page;
}

std::string PageText(std::string_view text) {
  // Most texts are figures and short words.
  const auto isPlain = [](char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == ' ' || letter == '.';
  };
  if (std::ranges::all_of(text, isPlain)) return std::string(text);
  std::string plain;
  while (!text.empty()) {
    const Utf8Character character = FirstCharacter(text);
    AppendUtf8(plain, StandsOnPages(character.code) ? character.code : kReplacementCharacter);
    text.remove_prefix(character.bytes);
  }
  return HtmlText(plain);
}

}  // namespace dtb
