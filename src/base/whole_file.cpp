#include "base/whole_file.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <utility>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/system.h"
#include "base/system_files.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;

// The file that is meant behind links; also one that is not there yet.
fs::path BehindLinks(fs::path file) {
  constexpr int kMostLinks = 40;  // more are a circle
  std::error_code fault;
  for (int links = 0; links < kMostLinks && fs::is_symlink(file, fault); ++links) {
    const fs::path target = fs::read_symlink(file, fault);
    if (fault) break;
    file = target.is_absolute() ? target : file.parent_path() / target;
  }
  return file;
}

fs::path FolderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

// Six letters behind the name, which is cut where a name may be no longer.
fs::path NameBeside(const fs::path& place) {
  static std::atomic<unsigned> made = 0;
  constexpr std::size_t kLongestName = 255 - 7;
  constexpr int kLetters = 6;
  constexpr std::string_view kAlphabet = "abcdefghijklmnopqrstuvwxyz0123456789";
  std::string name = TextOf(place.filename());
  if (name.size() > kLongestName) {
    std::size_t end = kLongestName;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) --end;
    name.resize(end);
  }
  const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
  auto number = static_cast<unsigned long long>(now) * 7919U +
                static_cast<unsigned long long>(system::ProcessNumber()) * 104729U + made++;
  name += '.';
  for (int letter = 0; letter < kLetters; ++letter, number /= kAlphabet.size()) {
    name += kAlphabet[number % kAlphabet.size()];
  }
  return FolderOf(place) / PathOf(name);
}

}  // namespace

void ThrowWriteFault(const std::string& kind, const fs::path& file, int fault) {
  const std::string named = "The " + kind + " \"" + TextOf(file) + "\" could not be written";
  std::error_code ignored;
  const std::string left = fs::exists(file, ignored) ? " What stood there before is unchanged."
                                                     : " Nothing of it is left.";
  switch (fault) {
    case ENOSPC:
#ifdef EDQUOT  // a system without shares of the disk has no such number
    case EDQUOT:
#endif
    case EFBIG:
      throw ProgramError(error_number::kDiskFull, named + ": the disk is full." + left);
    case EACCES:
    case EPERM:
    case EROFS:
      throw ProgramError(error_number::kPermissionDenied,
                         named + ": you may not write to its folder.");
    case ENOENT:
    case ENOTDIR:
      throw ProgramError(error_number::kPathOrFileAccess, named + ": its folder does not exist.");
    case EISDIR:
      throw ProgramError(error_number::kPathOrFileAccess, named + ": a folder has its name.");
    case ENODEV:
      throw ProgramError(error_number::kPathOrFileAccess,
                         named + ": a pipe or a device has its name.");
    case ENAMETOOLONG:
      throw ProgramError(error_number::kPathOrFileAccess, named + ": its name is too long.");
    default:
      throw ProgramError(error_number::kDeviceFault, named + '.' + left);
  }
}

FileBeside::FileBeside(const fs::path& place, std::string kind)
    : asked_(place), kind_(std::move(kind)), place_(BehindLinks(place)) {
  int fault = system::FaultOfPlace(place_);
  while (fault == 0 || fault == EEXIST) {
    path_ = NameBeside(place_);
    fault = system::MakeFile(path_, place_);
    if (fault == 0) return;
  }
  ThrowWriteFault(kind_, asked_, fault);
}

FileBeside::~FileBeside() {
  std::error_code ignored;
  if (!moved_) fs::remove(path_, ignored);
}

void FileBeside::Write(std::string_view bytes) const {
  const int fault = system::WriteFile(path_, bytes, system::Reach::Disk);
  if (fault != 0) ThrowWriteFault(kind_, asked_, fault);
}

void FileBeside::MoveIntoPlace() {
  int fault = system::ForceFile(path_);
  if (fault == 0) fault = system::RenameFile(path_, place_);
  if (fault != 0) ThrowWriteFault(kind_, asked_, fault);
  moved_ = true;
  system::SyncFolder(FolderOf(place_));
}

void WriteWholeFile(const fs::path& file, std::string_view bytes, const std::string& kind) {
  FileBeside beside(file, kind);
  beside.Write(bytes);
  beside.MoveIntoPlace();
}

void WriteDraft(const fs::path& file, std::string_view bytes, const std::string& kind) {
  const int fault = system::WriteFile(file, bytes, system::Reach::System);
  if (fault != 0) ThrowWriteFault(kind, file, fault);
}

void MoveFolderIntoPlace(const fs::path& draft, const fs::path& place, const std::string& kind) {
  int fault = system::ForceFolder(draft);
  if (fault == 0) fault = system::RenameFile(draft, place);
  if (fault != 0) ThrowWriteFault(kind, place, fault);
  system::SyncFolder(FolderOf(place));
}

std::optional<std::string> ReadWholeFile(const fs::path& file, std::size_t most) {
  return system::ReadFile(file, most);
}

}  // namespace dtb
