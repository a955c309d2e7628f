#include "base/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <ctime>
#include <utility>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/system.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kUsualMode = 0666;  // less what the person's own mask takes away
constexpr mode_t kModeBits = 07777;

// An open file, or -1.
class Descriptor {
 public:
  Descriptor(const fs::path& file, int flags, mode_t mode = 0)
      : number_(open(file.c_str(), flags | O_CLOEXEC, mode)) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  [[nodiscard]] bool valid() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }
  // What the system tells when it closes the file: some file systems know only then that the disk
  // is full.
  [[nodiscard]] bool Close() { return close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

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
  std::string name = place.filename().string();
  if (name.size() > kLongestName) {
    std::size_t end = kLongestName;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) --end;
    name.resize(end);
  }
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  auto number = static_cast<unsigned long long>(now.tv_nsec) * 7919U +
                static_cast<unsigned long long>(getpid()) * 104729U + made++;
  name += '.';
  for (int letter = 0; letter < kLetters; ++letter, number /= kAlphabet.size()) {
    name += kAlphabet[number % kAlphabet.size()];
  }
  return FolderOf(place) / name;
}

// 0, or why the place cannot be taken over.
int FaultOfPlace(const fs::path& place) {
  struct stat there {};
  if (stat(place.c_str(), &there) != 0) return errno == ENOENT ? 0 : errno;
  if (S_ISDIR(there.st_mode)) return EISDIR;
  if (!S_ISREG(there.st_mode)) return ENODEV;
  return access(place.c_str(), W_OK) == 0 ? 0 : EACCES;
}

// 0, or the error number of what could not be written.
int FaultOfWriting(Descriptor& file, std::string_view bytes, bool toDisk) {
  while (!bytes.empty()) {
    const ssize_t written = write(file.number(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  // A file system that knows no forcing says EINVAL.
  if (toDisk && fsync(file.number()) != 0 && errno != EINVAL) return errno;
  return file.Close() ? 0 : errno;
}

}  // namespace

void ThrowWriteFault(const std::string& kind, const fs::path& file, int fault) {
  const std::string named = "The " + kind + " \"" + TextOf(file) + "\" could not be written";
  std::error_code ignored;
  const std::string left = fs::exists(file, ignored) ? " What stood there before is unchanged."
                                                     : " Nothing of it is left.";
  switch (fault) {
    case ENOSPC:
    case EDQUOT:
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
  if (const int fault = FaultOfPlace(place_)) ThrowWriteFault(kind_, asked_, fault);
  for (;;) {
    path_ = NameBeside(place_);
    const Descriptor file(path_, O_WRONLY | O_CREAT | O_EXCL, kUsualMode);
    if (!file.valid() && errno == EEXIST) continue;
    if (!file.valid()) ThrowWriteFault(kind_, asked_, errno);
    struct stat there {};
    // Who may read the old file may read the new one.
    if (stat(place_.c_str(), &there) == 0) fchmod(file.number(), there.st_mode & kModeBits);
    return;
  }
}

FileBeside::~FileBeside() {
  if (!moved_) unlink(path_.c_str());
}

void FileBeside::Write(std::string_view bytes) const {
  Descriptor file(path_, O_WRONLY | O_TRUNC);
  const int fault = file.valid() ? FaultOfWriting(file, bytes, true) : errno;
  if (fault != 0) ThrowWriteFault(kind_, asked_, fault);
}

void FileBeside::MoveIntoPlace() {
  Descriptor file(path_, O_WRONLY);
  int fault = file.valid() ? FaultOfWriting(file, {}, true) : errno;
  if (fault == 0 && rename(path_.c_str(), place_.c_str()) != 0) fault = errno;
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
  Descriptor descriptor(file, O_WRONLY | O_CREAT | O_TRUNC, kUsualMode);
  const int fault = descriptor.valid() ? FaultOfWriting(descriptor, bytes, false) : errno;
  if (fault != 0) ThrowWriteFault(kind, file, fault);
}

void MoveFolderIntoPlace(const fs::path& draft, const fs::path& place, const std::string& kind) {
  const Descriptor folder(draft, O_RDONLY | O_DIRECTORY);
  // One call for all files in it; it tells of any that did not reach the disk.
  if (!folder.valid() || syncfs(folder.number()) != 0) ThrowWriteFault(kind, place, errno);
  if (rename(draft.c_str(), place.c_str()) != 0) ThrowWriteFault(kind, place, errno);
  system::SyncFolder(FolderOf(place));
}

std::optional<std::string> ReadWholeFile(const fs::path& file, std::size_t most) {
  // The system would wait for the writer of a pipe, were it not told to open it at once.
  const Descriptor descriptor(file, O_RDONLY | O_NONBLOCK);
  struct stat there {};
  if (!descriptor.valid() || fstat(descriptor.number(), &there) != 0) return std::nullopt;
  if (!S_ISREG(there.st_mode)) return std::nullopt;
  std::string bytes;
  std::array<char, 1U << 16U> piece{};
  while (bytes.size() < most) {
    const ssize_t count = read(descriptor.number(), piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    bytes.append(piece.data(), std::min(static_cast<std::size_t>(count), most - bytes.size()));
  }
  return bytes;
}

}  // namespace dtb
