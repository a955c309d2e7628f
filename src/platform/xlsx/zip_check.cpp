#include "platform/xlsx/zip_check.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "platform/zip/open_zip.h"

namespace dtb::xlsx {
namespace {

struct CloseArchive {
  void operator()(void* archive) const { unzClose(archive); }
};

// The first and the last characters of a document that passes by in pieces.
class DocumentEnds {
 public:
  void Add(std::string_view piece) {
    if (first_.size() < kKept) first_ += piece.substr(0, kKept - first_.size());
    last_ += piece.substr(piece.size() - std::min(piece.size(), kKept));
    if (last_.size() > kKept) last_.erase(0, last_.size() - kKept);
  }

  // The last tag closes the first.
  [[nodiscard]] bool whole() const {
    const std::size_t root = first_.find('<', first_.find("?>"));
    if (root == std::string::npos) return false;
    const std::string_view last =
        std::string_view(last_).substr(0, last_.find_last_not_of("\r\n") + 1);
    const bool alone = first_.size() < kKept && first_.find('<', root + 1) == std::string::npos;
    if (alone) return last.ends_with("/>");
    const std::size_t name = root + 1;
    return last.ends_with("</" + first_.substr(name, first_.find_first_of(" />", name) - name) +
                          '>');
  }

 private:
  static constexpr std::size_t kKept = 512;

  std::string first_;
  std::string last_;
};

bool IsWholeDocument(unzFile archive) {
  if (unzOpenCurrentFile(archive) != UNZ_OK) return false;
  std::array<char, 65536> piece{};
  DocumentEnds ends;
  int read = 0;
  while ((read = unzReadCurrentFile(archive, piece.data(), piece.size())) > 0) {
    ends.Add({piece.data(), static_cast<std::size_t>(read)});
  }
  // Closing also compares the checksum.
  return unzCloseCurrentFile(archive) == UNZ_OK && read == 0 && ends.whole();
}

}  // namespace

bool HoldsWholeSheets(const std::filesystem::path& file,
                      const std::vector<std::uint64_t>& rowBytes) {
  const std::unique_ptr<void, CloseArchive> archive(OpenZip(file));
  if (!archive) return false;
  std::size_t sheets = 0;
  int found = unzGoToFirstFile(archive.get());
  while (found == UNZ_OK) {
    std::array<char, 256> name{};
    unz_file_info64 info{};
    if (unzGetCurrentFileInfo64(archive.get(), &info, name.data(), name.size() - 1, nullptr, 0,
                                nullptr, 0) != UNZ_OK) {
      return false;
    }
    // They stand in the order of the workbook.
    const bool sheet = std::string_view(name.data()).starts_with("xl/worksheets/sheet");
    if (sheet && (sheets == rowBytes.size() || info.uncompressed_size <= rowBytes[sheets++])) {
      return false;
    }
    if (!IsWholeDocument(archive.get())) return false;
    found = unzGoToNextFile(archive.get());
  }
  return found == UNZ_END_OF_LIST_OF_FILE && sheets == rowBytes.size();
}

}  // namespace dtb::xlsx
