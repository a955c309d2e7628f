#include "base/system.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

namespace dtb::system {
namespace {

int OpenFolder(const std::filesystem::path& folder) {
  return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

}  // namespace

std::filesystem::path ExecutableFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

std::vector<std::string> Arguments(int argc, char** argv) { return {argv + 1, argv + argc}; }

const char* const kProgramEnding = "";

void PrintToConsole() {}  // there it does anyway

const bool kSettingsBesideData = false;

bool HasDisplay() {
  const auto set = [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
  };
  return set("WAYLAND_DISPLAY") || set("DISPLAY");
}

void SyncFolder(const std::filesystem::path& folder) {
  const int descriptor = OpenFolder(folder);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

FolderHeld::FolderHeld(const std::filesystem::path& folder) : handle_(OpenFolder(folder)) {
  const auto held = [this] { return flock(static_cast<int>(handle_), LOCK_EX) == 0; };
  while (handle_ >= 0 && !held() && errno == EINTR) continue;
}

FolderHeld::~FolderHeld() {
  if (handle_ >= 0) close(static_cast<int>(handle_));
}

void EndByForce() {
  std::raise(SIGKILL);
  std::abort();  // never reached
}

}  // namespace dtb::system
