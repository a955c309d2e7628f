#include "base/system_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace dtb::system {
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

int FaultOfPlace(const fs::path& place) {
  struct stat there {};
  if (stat(place.c_str(), &there) != 0) return errno == ENOENT ? 0 : errno;
  if (S_ISDIR(there.st_mode)) return EISDIR;
  if (!S_ISREG(there.st_mode)) return ENODEV;
  return access(place.c_str(), W_OK) == 0 ? 0 : EACCES;
}

int MakeFile(const fs::path& file, const fs::path& like) {
  const Descriptor made(file, O_WRONLY | O_CREAT | O_EXCL, kUsualMode);
  if (!made.valid()) return errno;
  struct stat there {};
  if (stat(like.c_str(), &there) == 0) fchmod(made.number(), there.st_mode & kModeBits);
  return 0;
}

int WriteFile(const fs::path& file, std::string_view bytes, Reach reach) {
  Descriptor descriptor(file, O_WRONLY | O_CREAT | O_TRUNC, kUsualMode);
  return descriptor.valid() ? FaultOfWriting(descriptor, bytes, reach == Reach::Disk) : errno;
}

int ForceFile(const fs::path& file) {
  Descriptor descriptor(file, O_WRONLY);
  return descriptor.valid() ? FaultOfWriting(descriptor, {}, true) : errno;
}

int ForceFolder(const fs::path& folder) {
  const Descriptor descriptor(folder, O_RDONLY | O_DIRECTORY);
  // One call for all files in it; it tells of any that did not reach the disk.
  return descriptor.valid() && syncfs(descriptor.number()) == 0 ? 0 : errno;
}

int RenameFile(const fs::path& from, const fs::path& to) {
  return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

std::optional<std::string> ReadFile(const fs::path& file, std::size_t most) {
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

unsigned long ProcessNumber() { return static_cast<unsigned long>(getpid()); }

}  // namespace dtb::system
