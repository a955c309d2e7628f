#include "base/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

namespace dtb::system {
namespace {

[[noreturn]] void CannotStart(int code) { throw std::system_error(code, std::generic_category()); }

struct Actions {
  Actions() { posix_spawn_file_actions_init(&actions); }
  ~Actions() { posix_spawn_file_actions_destroy(&actions); }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;
  posix_spawn_file_actions_t actions{};
};

}  // namespace

ChildProcess::ChildProcess(const std::filesystem::path& program,
                           const std::filesystem::path& file) {
  std::string path = program.string();
  std::string argument = file.string();
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) CannotStart(errno);
  Actions its;
  posix_spawn_file_actions_addopen(&its.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&its.actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&its.actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  std::array<char*, 3> arguments{path.data(), argument.data(), nullptr};
  std::array<char*, 1> environment{nullptr};
  pid_t process = -1;
  const int code = posix_spawn(&process, path.c_str(), &its.actions, nullptr, arguments.data(),
                               environment.data());
  close(ends[1]);
  process_ = process;
  output_ = ends[0];
  if (code == 0) return;
  close(ends[0]);
  CannotStart(code);
}

ChildProcess::~ChildProcess() {
  const auto process = static_cast<pid_t>(process_);
  close(static_cast<int>(output_));
  kill(process, SIGKILL);
  while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) continue;
}

ChildProcess::Heard ChildProcess::Hear(std::string& bytes, int longestSilence) {
  const int output = static_cast<int>(output_);
  pollfd its{output, POLLIN, 0};
  int ready = poll(&its, 1, longestSilence);
  while (ready < 0 && errno == EINTR) ready = poll(&its, 1, longestSilence);
  if (ready == 0) return Heard::Silence;
  std::array<char, 1U << 16U> block{};
  ssize_t size = read(output, block.data(), block.size());
  while (size < 0 && errno == EINTR) size = read(output, block.data(), block.size());
  if (size <= 0) return Heard::End;
  bytes.append(block.data(), static_cast<std::size_t>(size));
  return Heard::Bytes;
}

void BeAChild(unsigned seconds, std::size_t memory) {
  const auto limit = [](decltype(RLIMIT_CPU) what, rlim_t most) {
    const rlimit limits{most, most};
    setrlimit(what, &limits);
  };
  limit(RLIMIT_CPU, seconds);
  limit(RLIMIT_CORE, 0);
  if (memory != 0) limit(RLIMIT_AS, memory);
}

void GoOnAs(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
  std::vector<std::string> texts{program.string()};
  texts.insert(texts.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  execv(program.c_str(), pointers.data());
}

}  // namespace dtb::system
