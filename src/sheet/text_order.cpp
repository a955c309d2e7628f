#include "sheet/text_order.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "shell/utf8.h"

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

// Capitals from first to last, each with a small letter so much further on. With a step of 2 every
// other character is a capital and the one behind it its small letter.
struct Capitals {
  char32_t first = 0;
  char32_t last = 0;
  int distance = 0;
  int step = 1;
};

constexpr auto kCapitals = std::to_array<Capitals>({
    {U'A', U'Z', 32},       {0xC0, 0xD6, 32},       {0xD8, 0xDE, 32},     {0x100, 0x12E, 1, 2},
    {0x132, 0x136, 1, 2},   {0x139, 0x147, 1, 2},   {0x14A, 0x176, 1, 2}, {0x178, 0x178, -121},
    {0x179, 0x17D, 1, 2},   {0x1A0, 0x1A4, 1, 2},   {0x1AF, 0x1AF, 1},    {0x1CD, 0x1DB, 1, 2},
    {0x1DE, 0x1EE, 1, 2},   {0x1F8, 0x21E, 1, 2},   {0x222, 0x232, 1, 2}, {0x386, 0x386, 38},
    {0x388, 0x38A, 37},     {0x38C, 0x38C, 64},     {0x38E, 0x38F, 63},   {0x391, 0x3A1, 32},
    {0x3A3, 0x3AB, 32},     {0x400, 0x40F, 80},     {0x410, 0x42F, 32},   {0x460, 0x480, 1, 2},
    {0x48A, 0x4BE, 1, 2},   {0x4C0, 0x4C0, 15},     {0x4C1, 0x4CD, 1, 2}, {0x4D0, 0x52E, 1, 2},
    {0x1E00, 0x1E94, 1, 2}, {0x1EA0, 0x1EFE, 1, 2},
});

constexpr char32_t kFinalSigma = 0x3C2;
constexpr char32_t kSigma = 0x3C3;

// The letters under the accents of U+00E0 to U+017F, small ones; "." where there is none.
constexpr std::string_view kUnaccented =
    "aaaaaaaceeeeiiii.nooooo.ouuuuy.y"
    "aaaaaaccccccccddddeeeeeeeeeegggg"
    "gggghhhhiiiiiiiiii..jjkk.lllllll"
    "lllnnnnnnn..oooooo..rrrrrrssssss"
    "ssttttttuuuuuuuuuuuuwwyyyzzzzzzs";

char32_t NameLetter(char32_t letter) {
  const char32_t small = SmallLetter(letter);
  if (small < 0xE0 || small >= 0xE0 + kUnaccented.size()) return small;
  const char plain = kUnaccented[small - 0xE0];
  return plain == '.' ? small : static_cast<char32_t>(plain);
}

}  // namespace

char32_t SmallLetter(char32_t letter) {
  if (letter < 0x80) return letter >= U'A' && letter <= U'Z' ? letter + 32 : letter;
  // Both small sigmas are one letter at different places of a word.
  if (letter == kFinalSigma) return kSigma;
  for (const Capitals& range : kCapitals) {
    if (letter < range.first) break;
    if (letter > range.last || (letter - range.first) % range.step != 0) continue;
    return static_cast<char32_t>(static_cast<std::int64_t>(letter) + range.distance);
  }
  return letter;
}

int CompareNames(std::string_view first, std::string_view second) {
  while (!first.empty() && !second.empty()) {
    const char32_t a = NameLetter(TakeCharacter(first));
    const char32_t b = NameLetter(TakeCharacter(second));
    if (a != b) return a < b ? -1 : 1;
  }
  return static_cast<int>(!first.empty()) - static_cast<int>(!second.empty());
}

LikePattern::LikePattern(std::string_view pattern, char32_t escape) {
  while (!pattern.empty()) {
    const char32_t mark = TakeCharacter(pattern);
    if (mark == escape && escape != kNoEscape) {
      if (!pattern.empty()) marks_ += SmallLetter(TakeCharacter(pattern));
    } else if (mark == U'%') {
      if (marks_.empty() || marks_.back() != kAnyText) marks_ += kAnyText;
    } else {
      marks_ += mark == U'_' ? kAnyCharacter : SmallLetter(mark);
    }
  }
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
      if (mark < marks_.size() &&
          (marks_[mark] == kAnyCharacter || marks_[mark] == SmallLetter(next.code))) {
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
