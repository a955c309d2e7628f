#include "platform/zip/zip_archives.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/paths.h"
#include "base/program_error.h"
#include "platform/zip/open_zip.h"
#include "platform/zip/zip_directory.h"

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

// Takes pieces until `next` has no more, and never more than a file may have. False: stopped.
template <class Next>
bool ReadPieces(std::string& bytes, const ArchivedFile& file, std::uint64_t& readBefore,
                const GoOn& goOn, Next next) {
  constexpr std::size_t kPiece = 65536;
  std::size_t filled = 0;
  for (;;) {
    const double share = static_cast<double>(filled) / (static_cast<double>(file.bytes) + 1);
    if (!goOn(std::min(share, 1.0))) return false;
    if (bytes.size() < filled + kPiece) bytes.resize(std::max(filled + kPiece, bytes.size() * 2));
    const std::size_t read = next(bytes.data() + filled, kPiece);
    if (read == 0) break;
    filled += read;
    readBefore += read;
    if (filled > archive_limit::kFileBytes || readBefore > archive_limit::kAllBytes) {
      bytes.clear();
      Refuse(error_number::kPathOrFileAccess, file.name,
             " is far larger than any file of a season. The archive is not read further.");
    }
  }
  bytes.resize(filled);
  return true;
}

struct CloseZip {
  void operator()(void* zip) const { unzClose(zip); }
};

// The methods by which other programs pack, as they call them.
std::string MethodName(unsigned long method) {
  constexpr std::array<std::pair<unsigned long, const char*>, 10> kNames{{{1, "Shrink"},
                                                                          {6, "Implode"},
                                                                          {9, "Deflate64"},
                                                                          {12, "bzip2"},
                                                                          {14, "LZMA"},
                                                                          {93, "Zstandard"},
                                                                          {95, "XZ"},
                                                                          {96, "JPEG"},
                                                                          {97, "WavPack"},
                                                                          {98, "PPMd"}}};
  for (const auto& [number, name] : kNames) {
    if (number == method) return name;
  }
  return "method " + std::to_string(method);
}

bool IsRead(unsigned long method) { return method == 0 || method == Z_DEFLATED; }

class ZipArchive : public Archive {
 public:
  explicit ZipArchive(const std::filesystem::path& file)
      : path_(TextOf(file)), zip_(OpenZip(file)) {
    if (!zip_) RefuseWhole(" is not a zip file, or is damaged.");
    std::uint64_t length = 0;
    int found = unzGoToFirstFile(zip_.get());
    for (; found == UNZ_OK; found = unzGoToNextFile(zip_.get())) length += Note();
    if (found != UNZ_END_OF_LIST_OF_FILE) RefuseWhole(" is a damaged zip file.");
    // A directory that goes on behind its last file has files that nobody would miss.
    const auto told = zip::DirectoryLength(file);
    if (told && *told != length) {
      RefuseWhole(" is a damaged zip file: its directory does not have the files that it counts.");
    }
  }

  const std::vector<ArchivedFile>& files() const override { return files_; }

  bool Read(std::size_t file, std::string& bytes, const GoOn& goOn) override {
    const ArchivedFile& wanted = files_.at(file);
    Place& place = places_.at(file);
    RequireKnownPacking(wanted, place);
    if (unzGoToFilePos64(zip_.get(), &place.position) != UNZ_OK ||
        unzOpenCurrentFile(zip_.get()) != UNZ_OK) {
      RefuseFile(wanted.name, " is damaged inside the archive.");
    }
    struct CloseFile {
      void operator()(void* zip) const { unzCloseCurrentFile(zip); }
    };
    const std::unique_ptr<void, CloseFile> open(zip_.get());
    const bool whole = ReadPieces(bytes, wanted, read_, goOn, [&](char* to, std::size_t most) {
      const int read = unzReadCurrentFile(zip_.get(), to, static_cast<unsigned>(most));
      if (read < 0) RefuseFile(wanted.name, " is damaged inside the archive.");
      return static_cast<std::size_t>(read);
    });
    if (whole) RequireWhole(wanted, place, bytes);
    return whole;
  }

 private:
  struct Place {
    unz64_file_pos position{};
    bool encrypted = false;
    unsigned long method = 0;
    unsigned long checksum = 0;
  };

  // The file at which the directory stands; returns the length of its record.
  std::uint64_t Note() {
    RequireRoom(files_.size(), path_);
    unz_file_info64 info{};
    Place place;
    std::string name;
    const auto look = [&] {
      return unzGetCurrentFileInfo64(zip_.get(), &info, name.data(),
                                     static_cast<uLong>(name.size()), nullptr, 0, nullptr,
                                     0) == UNZ_OK;
    };
    bool good = look();
    name.resize(info.size_filename);
    good = good && look() && unzGetFilePos64(zip_.get(), &place.position) == UNZ_OK;
    if (!good) RefuseWhole(" is a damaged zip file.");
    if (!name.empty() && !name.ends_with('/')) {
      place.encrypted = (info.flag & 1U) != 0;
      place.method = info.compression_method;
      place.checksum = info.crc;
      files_.push_back({std::move(name), info.uncompressed_size});
      places_.push_back(place);
    }
    return zip::kRecordHead + info.size_filename + info.size_file_extra + info.size_file_comment;
  }

  static void RequireKnownPacking(const ArchivedFile& file, const Place& place) {
    if (place.encrypted) {
      Refuse(error_number::kPermissionDenied, file.name,
             " is encrypted. Unpack the archive with its password and choose the folder.");
    }
    if (!IsRead(place.method)) {
      RefuseFile(file.name, " is packed by " + MethodName(place.method) +
                                ", which is not read here. "
                                "Unpack the archive with another program and choose the folder.");
    }
  }

  // What the directory says of a file against the bytes that came.
  static void RequireWhole(const ArchivedFile& file, const Place& place, const std::string& bytes) {
    if (bytes.size() != file.bytes) {
      RefuseFile(file.name, " is damaged inside the archive: it should have " +
                                std::to_string(file.bytes) + " bytes and has " +
                                std::to_string(bytes.size()) + ".");
    }
    const auto* start = reinterpret_cast<const Bytef*>(bytes.data());
    if (crc32_z(0, start, bytes.size()) != place.checksum) {
      RefuseFile(file.name, " is damaged inside the archive: its checksum is wrong.");
    }
  }

  [[noreturn]] void RefuseWhole(std::string_view what) const {
    Refuse(error_number::kInvalidFileFormat, path_, what);
  }
  [[noreturn]] static void RefuseFile(std::string_view name, std::string_view what) {
    Refuse(error_number::kInvalidFileFormat, name, what);
  }

  std::string path_;
  std::unique_ptr<void, CloseZip> zip_;
  std::vector<ArchivedFile> files_;
  std::vector<Place> places_;
  std::uint64_t read_ = 0;
};

class FolderArchive : public Archive {
 public:
  explicit FolderArchive(std::filesystem::path folder) : folder_(std::move(folder)) {}

  // Notes all files. False: stopped.
  bool List(const GoOn& goOn) {
    std::error_code fault;
    // Links are not followed, so no folder is walked twice.
    std::filesystem::recursive_directory_iterator place(folder_, fault);
    for (const std::filesystem::recursive_directory_iterator end; !fault && place != end;
         place.increment(fault)) {
      if (!goOn(0)) return false;
      std::error_code unknown;
      if (!place->is_regular_file(unknown)) continue;
      RequireRoom(files_.size(), TextOf(folder_));
      const std::uint64_t size = place->file_size(unknown);
      files_.push_back({TextOf(place->path().lexically_relative(folder_)), unknown ? 0 : size});
    }
    if (fault) {
      Refuse(error_number::kPermissionDenied, TextOf(folder_),
             " is a folder that cannot be read: you lack permission.");
    }
    std::ranges::sort(files_, {}, &ArchivedFile::name);
    return true;
  }

  const std::vector<ArchivedFile>& files() const override { return files_; }

  bool Read(std::size_t file, std::string& bytes, const GoOn& goOn) override {
    const ArchivedFile& wanted = files_.at(file);
    std::ifstream stream(folder_ / PathOf(wanted.name), std::ios::binary);
    if (!stream)
      Refuse(error_number::kPermissionDenied, wanted.name, " cannot be read: you lack permission.");
    return ReadPieces(bytes, wanted, read_, goOn, [&](char* to, std::size_t most) {
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

std::unique_ptr<Archive> ZipArchives::OpenArchive(const std::filesystem::path& zipOrFolder,
                                                  const GoOn& goOn) {
  std::error_code fault;
  const auto status = std::filesystem::status(zipOrFolder, fault);
  if (std::filesystem::is_directory(status)) {
    auto folder = std::make_unique<FolderArchive>(zipOrFolder);
    if (!folder->List(goOn)) return nullptr;
    return folder;
  }
  if (!std::filesystem::exists(status)) {
    const bool denied = fault == std::errc::permission_denied;
    Refuse(denied ? error_number::kPermissionDenied : error_number::kFileNotFound,
           TextOf(zipOrFolder),
           denied ? " cannot be read: you lack permission." : " does not exist.");
  }
  if (!std::filesystem::is_regular_file(status)) {
    Refuse(error_number::kPathOrFileAccess, TextOf(zipOrFolder),
           " is neither a file nor a folder.");
  }
  return std::make_unique<ZipArchive>(zipOrFolder);
}

}  // namespace dtb
