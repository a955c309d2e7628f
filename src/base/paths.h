// Paths and the UTF-8 text that names them.
#pragma once

#include <filesystem>
#include <string>

namespace dtb {

[[nodiscard]] inline std::filesystem::path PathOf(const std::string& utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

[[nodiscard]] inline std::string TextOf(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

}  // namespace dtb
