// Letters of all scripts: their case, their order, and texts in older encodings. Any thread may
// call these functions, several at a time.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dtb {

// The letter that stands for all cases of one letter, as a small one; any other character itself.
// One letter for one: "ß" stays, and no letter loses its accent.
[[nodiscard]] char32_t FoldedLetter(char32_t letter);

// The letter without its accents, "n" for "ñ"; any other character itself.
[[nodiscard]] char32_t PlainLetter(char32_t letter);

// The order of names in lists: signs, digits, then Latin, Greek and Cyrillic letters, without
// regard to case or accents. Negative, 0 or positive, as the first UTF-8 text stands before, beside
// or behind the second. Bytes that are no UTF-8 stand together, behind all letters.
[[nodiscard]] int CompareNames(std::string_view first, std::string_view second);

// The UTF-8 text of bytes in Windows-1252; the five bytes without a character stay control codes.
[[nodiscard]] std::string FromWindows1252(std::string_view bytes);

// The UTF-8 text of bytes in an encoding that ICU knows by this name. Nothing where they make no
// sense in it, or it is unknown.
[[nodiscard]] std::optional<std::string> FromEncoding(std::string_view bytes, const char* encoding);

enum class ByteOrder { LittleEndian, BigEndian };

// The UTF-8 text of UTF-16 without a mark. Half a pair becomes U+FFFD; an odd last byte is dropped.
[[nodiscard]] std::string FromUtf16(std::string_view bytes, ByteOrder order);

}  // namespace dtb
