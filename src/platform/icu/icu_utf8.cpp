#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "base/utf8.h"

namespace dtb {
namespace {

struct Taken {
  UChar32 code = 0;  // negative: no character stands there
  std::int32_t bytes = 0;
};

Taken TakenFrom(std::string_view text) {
  const auto length = static_cast<std::int32_t>(std::min<std::size_t>(text.size(), U8_MAX_LENGTH));
  Taken taken;
  U8_NEXT(text.data(), taken.bytes, length, taken.code);
  return taken;
}

}  // namespace

std::size_t Utf8SequenceLength(std::string_view text) {
  const Taken taken = TakenFrom(text);
  return taken.code < 0 ? 0 : static_cast<std::size_t>(taken.bytes);
}

Utf8Character FirstCharacter(std::string_view text) {
  const Taken taken = TakenFrom(text);
  // ICU passes over all bytes of a torn character at once.
  if (taken.code < 0) return {kReplacementCharacter, 1};
  return {static_cast<char32_t>(taken.code), static_cast<std::size_t>(taken.bytes)};
}

void AppendUtf8(std::string& text, char32_t code) {
  std::array<char, U8_MAX_LENGTH> bytes{};
  std::int32_t length = 0;
  bool refused = false;
  U8_APPEND(bytes.data(), length, U8_MAX_LENGTH, static_cast<UChar32>(code), refused);
  if (refused) return AppendUtf8(text, kReplacementCharacter);
  text.append(bytes.data(), static_cast<std::size_t>(length));
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
