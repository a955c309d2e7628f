#include "base/checksum.h"

namespace dtb {

std::uint64_t ChecksumOf(std::string_view bytes, std::uint64_t before) {
  std::uint64_t sum = before;
  for (const char byte : bytes) {
    sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
  }
  return sum;
}

std::string HexText(std::uint64_t number) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  constexpr int kBitsOfDigit = 4;
  std::string text(2 * sizeof number, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, number >>= kBitsOfDigit) {
    *digit = kDigits[number & 0xFU];
  }
  return text;
}

}  // namespace dtb
