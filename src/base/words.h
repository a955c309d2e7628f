// Small parts of sentences.
#pragma once

#include <string>
#include <string_view>

namespace dtb {

// "1 game", "3 games".
[[nodiscard]] inline std::string Counted(long long count, std::string_view what) {
  return std::to_string(count).append(" ").append(what).append(count == 1 ? "" : "s");
}

}  // namespace dtb
