// A checksum that tells whether bytes are still the same; it is no protection against malice.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dtb {

// FNV-1a, of 64 bits.
inline constexpr std::uint64_t kChecksumOfNothing = 14695981039346656037U;

// The checksum of the bytes behind those of which `before` is the one.
[[nodiscard]] std::uint64_t ChecksumOf(std::string_view bytes,
                                       std::uint64_t before = kChecksumOfNothing);

// 16 hexadecimal digits.
[[nodiscard]] std::string HexText(std::uint64_t number);

}  // namespace dtb
