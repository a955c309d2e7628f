#include "platform/jet/reader_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/system.h"

namespace dtb::jet {
namespace {

namespace fs = std::filesystem;

constexpr const char* kReader = "dtb_jet_reader";

// Beside the program, or where the package has it.
fs::path ReaderProgram() {
  std::error_code error;
  const fs::path folder = system::ExecutableFolder();
  for (const fs::path& place :
       {folder / kReader, folder / "../lib/games/kelvane-diamond-table" / kReader}) {
    if (fs::is_regular_file(place, error)) return place;
  }
  throw ProgramError(error_number::kNoComponent, std::string("the program \"") + kReader +
                                                     "\", which reads it, is missing in \"" +
                                                     TextOf(folder) + "\".");
}

[[noreturn]] void CannotStart(int code) {
  throw ProgramError(error_number::kNoComponent, std::string("the program \"") + kReader +
                                                     "\", which reads it, cannot start: " +
                                                     std::generic_category().message(code) + ".");
}

struct Actions {
  Actions() { posix_spawn_file_actions_init(&actions); }
  ~Actions() { posix_spawn_file_actions_destroy(&actions); }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;
  posix_spawn_file_actions_t actions{};
};

}  // namespace

ReaderProcess::ReaderProcess(const fs::path& file) {
  std::string program = ReaderProgram().string();
  std::string name = fs::absolute(file).string();
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) CannotStart(errno);
  Actions its;
  posix_spawn_file_actions_addopen(&its.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&its.actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&its.actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  std::array<char*, 3> arguments{program.data(), name.data(), nullptr};
  // libmdb follows variables of the environment, which are none of a game's.
  std::array<char*, 1> environment{nullptr};
  const int code = posix_spawn(&process_, program.c_str(), &its.actions, nullptr, arguments.data(),
                               environment.data());
  close(ends[1]);
  output_ = ends[0];
  if (code == 0) return;
  close(output_);
  CannotStart(code);
}

ReaderProcess::~ReaderProcess() {
  close(output_);
  kill(process_, SIGKILL);
  while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) continue;
}

bool ReaderProcess::Hear(std::string& bytes, int longestSilence) {
  pollfd its{output_, POLLIN, 0};
  int ready = poll(&its, 1, longestSilence);
  while (ready < 0 && errno == EINTR) ready = poll(&its, 1, longestSilence);
  if (ready == 0) {
    throw ProgramError(error_number::kInvalidFileFormat,
                       "the file is damaged: reading it does not end.");
  }
  std::array<char, 1U << 16U> block{};
  ssize_t size = read(output_, block.data(), block.size());
  while (size < 0 && errno == EINTR) size = read(output_, block.data(), block.size());
  if (size <= 0) return false;
  bytes.append(block.data(), static_cast<std::size_t>(size));
  return true;
}

}  // namespace dtb::jet
