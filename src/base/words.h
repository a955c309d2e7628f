// Small parts of sentences.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dtb {

// "1 game", "3 games".
[[nodiscard]] inline std::string Counted(long long count, std::string_view what) {
  return std::to_string(count).append(" ").append(what).append(count == 1 ? "" : "s");
}

// The size of a file, rounded up: "24 KB", "31 MB".
[[nodiscard]] inline std::string FileSizeText(std::uintmax_t bytes) {
  constexpr std::uintmax_t kKilo = 1024;
  const std::uintmax_t kilobytes = (bytes + kKilo - 1) / kKilo;
  if (kilobytes < 10 * kKilo) return std::to_string(kilobytes) + " KB";
  return std::to_string(kilobytes / kKilo) + " MB";
}

// The last two digits of a number that is not negative: "07".
[[nodiscard]] inline std::string TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

}  // namespace dtb
