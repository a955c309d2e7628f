#include "platform/sqlite/jet_head.h"

#include <array>
#include <fstream>
#include <string_view>
#include <system_error>

namespace dtb {

bool IsOfJetFormat(const std::filesystem::path& file) {
  constexpr std::string_view kBefore("\0\1\0\0", 4);
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return false;
  std::array<char, 20> head{};
  std::ifstream stream(file, std::ios::binary);
  if (!stream.read(head.data(), head.size())) return false;
  const std::string_view text(head.data(), head.size());
  const std::string_view name = text.substr(kBefore.size());
  return text.starts_with(kBefore) &&
         (name.starts_with("Standard Jet DB") || name.starts_with("Standard ACE DB"));
}

}  // namespace dtb
