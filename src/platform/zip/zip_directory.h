// What the end of a zip file says of its directory.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace dtb::zip {

// A record of the directory has so many bytes before its texts.
inline constexpr std::uint64_t kRecordHead = 46;

// The length of the directory's records, as told behind them. Nothing where that is told elsewhere,
// as in files above 4 GB, or cannot be read.
[[nodiscard]] std::optional<std::uint64_t> DirectoryLength(const std::filesystem::path& file);

}  // namespace dtb::zip
