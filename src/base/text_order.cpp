#include "base/text_order.h"

#include <cstddef>
#include <cstdint>

#include "base/letters.h"
#include "base/utf8.h"

namespace dtb {
namespace {

// Bytes that are no UTF-8 count as characters of their own, beyond all real ones.
constexpr char32_t kStrayByte = 0x110100;

// The character at the start of a text that is not empty.
Utf8Character CharacterAt(std::string_view text) {
  constexpr std::uint8_t kBeyondAscii = 0x80;
  const auto lead = static_cast<std::uint8_t>(text.front());
  if (lead < kBeyondAscii) return {lead, 1};
  return Utf8SequenceLength(text) == 0 ? Utf8Character{kStrayByte + lead, 1} : FirstCharacter(text);
}

char32_t TakeCharacter(std::string_view& text) {
  const Utf8Character first = CharacterAt(text);
  text.remove_prefix(first.bytes);
  return first.code;
}

char32_t Folded(char32_t letter) {
  constexpr char32_t kBeyondAscii = 0x80;
  if (letter < kBeyondAscii) return letter >= U'A' && letter <= U'Z' ? letter + 32 : letter;
  return FoldedLetter(letter);
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern, char32_t escape, Accents accents)
    : findsAccents_(accents == Accents::AreFound) {
  while (!pattern.empty()) {
    const char32_t mark = TakeCharacter(pattern);
    if (mark == escape && escape != kNoEscape) {
      if (!pattern.empty()) marks_ += Folded(TakeCharacter(pattern));
    } else if (mark == U'%') {
      if (marks_.empty() || marks_.back() != kAnyText) marks_ += kAnyText;
    } else {
      marks_ += mark == U'_' ? kAnyCharacter : Folded(mark);
    }
  }
}

bool LikePattern::Fits(char32_t mark, char32_t character) const {
  const char32_t letter = Folded(character);
  return mark == kAnyCharacter || mark == letter || (findsAccents_ && mark == PlainLetter(letter));
}

bool LikePattern::Matches(std::string_view text) const {
  // Where to take up again when the marks behind the last "%" do not fit: one character further on.
  std::size_t behindAny = std::u32string::npos;
  std::string_view retry;
  std::size_t mark = 0;
  for (;;) {
    if (mark < marks_.size() && marks_[mark] == kAnyText) {
      if (++mark == marks_.size()) return true;
      behindAny = mark;
      retry = text;
    } else if (text.empty()) {
      return mark == marks_.size();
    } else {
      const Utf8Character next = CharacterAt(text);
      if (mark < marks_.size() && Fits(marks_[mark], next.code)) {
        ++mark;
        text.remove_prefix(next.bytes);
      } else {
        if (behindAny == std::u32string::npos) return false;
        mark = behindAny;
        TakeCharacter(retry);
        text = retry;
      }
    }
  }
}

std::string EscapedForLike(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    if (character == '%' || character == '_' || character == '\\') escaped += '\\';
    escaped += character;
  }
  return escaped;
}

}  // namespace dtb
