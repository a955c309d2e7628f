#include "platform/zip/zip_directory.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

namespace dtb::zip {
namespace {

constexpr std::string_view kEndMark = "PK\x05\x06";
constexpr std::size_t kEndHead = 22;  // bytes of the end record before its comment
constexpr std::size_t kLengthPlace = 12;
constexpr std::uint32_t kToldElsewhere = 0xFFFFFFFF;

std::uint32_t NumberAt(std::string_view bytes, std::size_t place) {
  std::uint32_t number = 0;
  for (std::size_t i = 4; i-- > 0;) {
    number = number << 8U | static_cast<unsigned char>(bytes[place + i]);
  }
  return number;
}

}  // namespace

std::optional<std::uint64_t> DirectoryLength(const std::filesystem::path& file) {
  constexpr std::uint64_t kLongestEnd = kEndHead + 65535;
  std::error_code fault;
  const std::uint64_t size = std::filesystem::file_size(file, fault);
  std::ifstream stream(file, std::ios::binary);
  if (fault || !stream) return std::nullopt;
  stream.seekg(static_cast<std::streamoff>(size - std::min(size, kLongestEnd)));
  const std::string end{std::istreambuf_iterator<char>(stream), {}};
  const std::size_t mark = end.rfind(kEndMark);
  if (mark == std::string::npos || end.size() - mark < kEndHead) return std::nullopt;
  const std::uint32_t length = NumberAt(end, mark + kLengthPlace);
  if (length == kToldElsewhere) return std::nullopt;
  return length;
}

}  // namespace dtb::zip
