#include "platform/xlsx/zip_check.h"

#include <minizip/unzip.h>

#include <array>
#include <memory>
#include <string>

namespace dtb::xlsx {
namespace {

// Longer entries are those of large sheets, and reading them again would take too long.
constexpr std::uint64_t kShort = 1U << 20U;

struct CloseArchive {
  void operator()(void* archive) const { unzClose(archive); }
};

bool EndsAsDocument(unzFile archive) {
  if (unzOpenCurrentFile(archive) != UNZ_OK) return false;
  std::array<char, 16384> piece{};
  char last = 0;
  int read = 0;
  while ((read = unzReadCurrentFile(archive, piece.data(), piece.size())) > 0) {
    for (int i = read; i-- > 0;) {
      last = piece.at(static_cast<std::size_t>(i));
      if (last != '\n') break;
    }
  }
  // Closing also compares the checksum.
  return unzCloseCurrentFile(archive) == UNZ_OK && read == 0 && last == '>';
}

bool HoldsWhole(unzFile archive, std::uint64_t leastBytes) {
  unz_file_info64 info{};
  if (unzGetCurrentFileInfo64(archive, &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK) {
    return false;
  }
  if (info.uncompressed_size <= leastBytes) return false;
  return info.uncompressed_size > kShort || EndsAsDocument(archive);
}

}  // namespace

bool HoldsWholeSheets(const std::filesystem::path& file,
                      const std::vector<std::uint64_t>& rowBytes) {
  const std::unique_ptr<void, CloseArchive> archive(unzOpen64(file.c_str()));
  if (!archive) return false;
  for (std::size_t sheet = 0; sheet < rowBytes.size(); ++sheet) {
    const std::string name = "xl/worksheets/sheet" + std::to_string(sheet + 1) + ".xml";
    constexpr int kCaseCounts = 1;
    if (unzLocateFile(archive.get(), name.c_str(), kCaseCounts) != UNZ_OK) return false;
    if (!HoldsWhole(archive.get(), rowBytes[sheet])) return false;
  }
  int found = unzGoToFirstFile(archive.get());
  while (found == UNZ_OK) {
    if (!HoldsWhole(archive.get(), 0)) return false;
    found = unzGoToNextFile(archive.get());
  }
  return found == UNZ_END_OF_LIST_OF_FILE;
}

}  // namespace dtb::xlsx
