#include "base/decoded_text.h"

#include <string_view>
#include <utility>

#include "base/letters.h"
#include "base/utf8.h"

namespace dtb {

std::string DecodedText(std::string bytes) {
  // One mark at most: what looks like a second one is text.
  if (bytes.starts_with("\xEF\xBB\xBF")) {
    bytes.erase(0, 3);
  } else if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    const auto order = bytes.front() == '\xFE' ? ByteOrder::BigEndian : ByteOrder::LittleEndian;
    return FromUtf16(std::string_view(bytes).substr(2), order);
  }
  return IsUtf8(bytes) ? std::move(bytes) : FromWindows1252(bytes);
}

}  // namespace dtb
