#include "platform/zip/zip_archives.h"

#include <minizip/unzip.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/paths.h"
#include "shell/program_error.h"

namespace dtb {
namespace {

std::string Quoted(std::string_view name) { return std::string("\"").append(name).append("\""); }

[[noreturn]] void Refuse(int number, std::string_view name, std::string_view what) {
  throw ProgramError(number, Quoted(name).append(what));
}

void RequireRoom(std::size_t files, std::string_view archive) {
  if (files < archive_limit::kFiles) return;
  Refuse(error_number::kPathOrFileAccess, archive,
         " holds far too many files to be the archive of a season.");
}

// Takes pieces until `next` has no more, and never more than a file may have.
template <class Next>
void ReadPieces(std::string& bytes, std::string_view name, std::uint64_t& readBefore, Next next) {
  constexpr std::size_t kPiece = 65536;
  std::size_t filled = 0;
  for (;;) {
    if (bytes.size() < filled + kPiece) bytes.resize(std::max(filled + kPiece, bytes.size() * 2));
    const std::size_t read = next(bytes.data() + filled, kPiece);
    if (read == 0) break;
    filled += read;
    readBefore += read;
    if (filled > archive_limit::kFileBytes || readBefore > archive_limit::kAllBytes) {
      bytes.clear();
      Refuse(error_number::kPathOrFileAccess, name,
             " is far larger than any file of a season. The archive is not read further.");
    }
  }
  bytes.resize(filled);
}

struct CloseZip {
  void operator()(void* zip) const { unzClose(zip); }
};

class ZipArchive : public Archive {
 public:
  explicit ZipArchive(const std::filesystem::path& file)
      : path_(TextOf(file)), zip_(unzOpen64(file.c_str())) {
    if (!zip_) RefuseWhole(" is not a zip file, or is damaged.");
    int found = unzGoToFirstFile(zip_.get());
    for (; found == UNZ_OK; found = unzGoToNextFile(zip_.get())) Note();
    if (found != UNZ_END_OF_LIST_OF_FILE) RefuseWhole(" is a damaged zip file.");
  }

  const std::vector<ArchivedFile>& files() const override { return files_; }

  void Read(std::size_t file, std::string& bytes) override {
    const ArchivedFile& wanted = files_.at(file);
    Place& place = places_.at(file);
    if (place.encrypted) {
      Refuse(error_number::kPermissionDenied, wanted.name,
             " is encrypted. Unpack the archive with its password and choose the folder.");
    }
    if (unzGoToFilePos64(zip_.get(), &place.position) != UNZ_OK ||
        unzOpenCurrentFile(zip_.get()) != UNZ_OK) {
      RefuseFile(wanted.name);
    }
    try {
      ReadPieces(bytes, wanted.name, read_, [&](char* to, std::size_t most) {
        const int read = unzReadCurrentFile(zip_.get(), to, static_cast<unsigned>(most));
        if (read < 0) RefuseFile(wanted.name);
        return static_cast<std::size_t>(read);
      });
    } catch (const ProgramError&) {
      unzCloseCurrentFile(zip_.get());
      throw;
    }
    // Closing also compares the checksum.
    if (unzCloseCurrentFile(zip_.get()) != UNZ_OK) RefuseFile(wanted.name);
  }

 private:
  struct Place {
    unz64_file_pos position{};
    bool encrypted = false;
  };

  void Note() {
    RequireRoom(files_.size(), path_);
    std::array<char, 1024> name{};
    unz_file_info64 info{};
    Place place;
    if (unzGetCurrentFileInfo64(zip_.get(), &info, name.data(), name.size() - 1, nullptr, 0,
                                nullptr, 0) != UNZ_OK ||
        unzGetFilePos64(zip_.get(), &place.position) != UNZ_OK) {
      RefuseWhole(" is a damaged zip file.");
    }
    std::string text(name.data());
    if (text.empty() || text.ends_with('/')) return;
    place.encrypted = (info.flag & 1U) != 0;
    files_.push_back({std::move(text), info.uncompressed_size});
    places_.push_back(place);
  }

  [[noreturn]] void RefuseWhole(std::string_view what) const {
    Refuse(error_number::kInvalidFileFormat, path_, what);
  }
  [[noreturn]] static void RefuseFile(std::string_view name) {
    Refuse(error_number::kInvalidFileFormat, name,
           " is damaged inside the archive, or packed in an unknown way.");
  }

  std::string path_;
  std::unique_ptr<void, CloseZip> zip_;
  std::vector<ArchivedFile> files_;
  std::vector<Place> places_;
  std::uint64_t read_ = 0;
};

class FolderArchive : public Archive {
 public:
  explicit FolderArchive(const std::filesystem::path& folder) : folder_(folder) {
    std::error_code fault;
    // Links are not followed, so no folder is walked twice.
    std::filesystem::recursive_directory_iterator place(folder, fault);
    for (const std::filesystem::recursive_directory_iterator end; !fault && place != end;
         place.increment(fault)) {
      std::error_code unknown;
      if (!place->is_regular_file(unknown)) continue;
      RequireRoom(files_.size(), TextOf(folder));
      const std::uint64_t size = place->file_size(unknown);
      files_.push_back({TextOf(place->path().lexically_relative(folder)), unknown ? 0 : size});
    }
    if (fault) {
      Refuse(error_number::kPermissionDenied, TextOf(folder), " is a folder that may not be read.");
    }
    std::ranges::sort(files_, {}, &ArchivedFile::name);
  }

  const std::vector<ArchivedFile>& files() const override { return files_; }

  void Read(std::size_t file, std::string& bytes) override {
    const ArchivedFile& wanted = files_.at(file);
    std::ifstream stream(folder_ / PathOf(wanted.name), std::ios::binary);
    if (!stream) Refuse(error_number::kPermissionDenied, wanted.name, " may not be read.");
    ReadPieces(bytes, wanted.name, read_, [&](char* to, std::size_t most) {
      stream.read(to, static_cast<std::streamsize>(most));
      if (stream.bad()) Refuse(error_number::kDeviceFault, wanted.name, " could not be read.");
      return static_cast<std::size_t>(stream.gcount());
    });
  }

 private:
  std::filesystem::path folder_;
  std::vector<ArchivedFile> files_;
  std::uint64_t read_ = 0;
};

}  // namespace

std::unique_ptr<Archive> ZipArchives::OpenArchive(const std::filesystem::path& zipOrFolder) {
  std::error_code fault;
  const auto status = std::filesystem::status(zipOrFolder, fault);
  if (std::filesystem::is_directory(status)) return std::make_unique<FolderArchive>(zipOrFolder);
  if (!std::filesystem::exists(status)) {
    const bool denied = fault == std::errc::permission_denied;
    Refuse(denied ? error_number::kPermissionDenied : error_number::kFileNotFound,
           TextOf(zipOrFolder), denied ? " may not be read." : " does not exist.");
  }
  if (!std::filesystem::is_regular_file(status)) {
    Refuse(error_number::kPathOrFileAccess, TextOf(zipOrFolder),
           " is neither a file nor a folder.");
  }
  return std::make_unique<ZipArchive>(zipOrFolder);
}

}  // namespace dtb
