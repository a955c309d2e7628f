#include "base/system_files.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace dtb::system {
namespace {

namespace fs = std::filesystem;

int Fault() {
  switch (GetLastError()) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
      return ENOENT;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return EACCES;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    default:
      return EIO;
  }
}

// An open file, which others may read, write and rename meanwhile.
class Handle {
 public:
  Handle(const fs::path& file, DWORD access, DWORD way)
      : handle_(CreateFileW(file.c_str(), access,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, way,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~Handle() {
    if (valid()) CloseHandle(handle_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  [[nodiscard]] bool valid() const { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

}  // namespace

int FaultOfPlace(const fs::path& place) {
  const DWORD there = GetFileAttributesW(place.c_str());
  if (there == INVALID_FILE_ATTRIBUTES) {
    const int fault = Fault();
    return fault == ENOENT ? 0 : fault;
  }
  if ((there & FILE_ATTRIBUTE_DIRECTORY) != 0) return EISDIR;
  if ((there & FILE_ATTRIBUTE_DEVICE) != 0) return ENODEV;
  return (there & FILE_ATTRIBUTE_READONLY) != 0 ? EACCES : 0;
}

// A file has the rights of its folder.
int MakeFile(const fs::path& file, const fs::path& /*like*/) {
  return Handle(file, GENERIC_WRITE, CREATE_NEW).valid() ? 0 : Fault();
}

int WriteFile(const fs::path& file, std::string_view bytes, Reach reach) {
  const Handle handle(file, GENERIC_WRITE, CREATE_ALWAYS);
  if (!handle.valid()) return Fault();
  while (!bytes.empty()) {
    constexpr std::size_t kPiece = std::size_t{1} << 30U;
    DWORD written = 0;
    if (::WriteFile(handle.get(), bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kPiece)),
                    &written, nullptr) == 0) {
      return Fault();
    }
    bytes.remove_prefix(written);
  }
  return reach == Reach::System || FlushFileBuffers(handle.get()) != 0 ? 0 : Fault();
}

int ForceFile(const fs::path& file) {
  const Handle handle(file, GENERIC_WRITE, OPEN_EXISTING);
  return handle.valid() && FlushFileBuffers(handle.get()) != 0 ? 0 : Fault();
}

int ForceFolder(const fs::path& folder) {
  std::error_code error;
  for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (!entry->is_regular_file(error)) continue;
    if (const int fault = ForceFile(entry->path())) return fault;
  }
  return error ? EIO : 0;
}

// A file that another program has just looked into is free again after a moment.
int RenameFile(const fs::path& from, const fs::path& to) {
  constexpr int kTries = 50;
  constexpr DWORD kTurn = 20;  // milliseconds
  constexpr DWORD kWay = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  for (int tries = 1;; ++tries) {
    if (MoveFileExW(from.c_str(), to.c_str(), kWay) != 0) return 0;
    const int fault = Fault();
    if (fault != EACCES || tries == kTries) return fault;
    Sleep(kTurn);
  }
}

std::optional<std::string> ReadFile(const fs::path& file, std::size_t most) {
  const Handle handle(file, GENERIC_READ, OPEN_EXISTING);
  if (!handle.valid() || GetFileType(handle.get()) != FILE_TYPE_DISK) return std::nullopt;
  std::string bytes;
  std::array<char, 1U << 16U> piece{};
  while (bytes.size() < most) {
    DWORD count = 0;
    if (::ReadFile(handle.get(), piece.data(), static_cast<DWORD>(piece.size()), &count, nullptr) ==
        0) {
      return std::nullopt;
    }
    if (count == 0) break;
    bytes.append(piece.data(), std::min(std::size_t{count}, most - bytes.size()));
  }
  return bytes;
}

unsigned long ProcessNumber() { return GetCurrentProcessId(); }

}  // namespace dtb::system
