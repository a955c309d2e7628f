// A picture as the logic knows it: which file, and which state of that file.
#pragma once

#include <cstdint>
#include <string>

namespace dtb {

// Names a picture that was loaded from a file. The pixels stay with the platform. Two pictures are
// equal when they show the same state of the same file.
struct Picture {
  std::string path;         // UTF-8; empty: no picture
  std::uint64_t stamp = 0;  // changes when the file's contents change

  [[nodiscard]] bool empty() const { return path.empty(); }
  friend bool operator==(const Picture&, const Picture&) = default;
};

}  // namespace dtb
