// What the program and its reader of Jet files say to each other: the reader writes frames on its
// output. A frame is its kind, the length of the rest in four bytes, low ones first, and cells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dtb::jet {

enum class Frame : char {
  Table = 'T',   // the rows of the next table follow
  Row = 'R',     // a cell for each of its columns, in our order
  Totals = 'S',  // rows, then for each column: cells that are not Null, their bytes, their sum
  Fault = 'F',   // one cell: why the file cannot be taken over. The last frame.
  End = 'E',     // all tables are through. The last frame.
};

using Cells = std::vector<std::optional<std::string>>;  // none: Null

inline constexpr std::size_t kFrameHead = 5;
inline constexpr std::size_t kLongestFrame = std::size_t{1} << 22U;

inline void AppendSize(std::string& bytes, std::size_t size) {
  for (unsigned shift = 0; shift < 32; shift += 8) {
    bytes += static_cast<char>(size >> shift & 0xFFU);
  }
}

inline std::size_t SizeAt(std::string_view bytes) {
  std::size_t size = 0;
  for (unsigned at = 0; at < 4; ++at) {
    size |= std::size_t{static_cast<unsigned char>(bytes[at])} << 8 * at;
  }
  return size;
}

inline std::string FrameText(Frame frame, const Cells& cells) {
  std::string rest;
  for (const auto& cell : cells) {
    rest += cell ? 'V' : 'N';
    if (!cell) continue;
    AppendSize(rest, cell->size());
    rest += *cell;
  }
  std::string bytes(1, static_cast<char>(frame));
  AppendSize(bytes, rest.size());
  return bytes + rest;
}

// The cells of a frame; nothing if they make no sense.
inline std::optional<Cells> CellsOf(std::string_view rest) {
  Cells cells;
  while (!rest.empty()) {
    const bool value = rest.front() == 'V';
    if (!value && rest.front() != 'N') return std::nullopt;
    rest.remove_prefix(1);
    if (!value) {
      cells.emplace_back();
      continue;
    }
    if (rest.size() < 4 || SizeAt(rest) > rest.size() - 4) return std::nullopt;
    const std::size_t size = SizeAt(rest);
    cells.emplace_back(rest.substr(4, size));
    rest.remove_prefix(4 + size);
  }
  return cells;
}

}  // namespace dtb::jet
