// The head of the program's single file: shows the file system behind it as a folder, or extracts
// it where the system cannot mount, starts "AppRun" there, waits for its end and takes the folder
// away.
#include <poll.h>
#include <sys/signalfd.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <vector>

#include "image.h"
#include "mount.h"

namespace dtb::appimage {
namespace {

namespace fs = std::filesystem;

constexpr int kCannot = 1;
constexpr const char* kHelp =
    "Usage: %s [ARGUMENTS]\n\n"
    "Starts the program that this file holds; all other arguments are the program's own.\n\n"
    "  --appimage-extract          write the files that it holds into the folder squashfs-root\n"
    "  --appimage-extract-and-run  start the program from extracted files, without a mount;\n"
    "                              so does APPIMAGE_EXTRACT_AND_RUN=1 in the environment\n"
    "  --appimage-mount            show the files in a folder until Ctrl + C\n"
    "  --appimage-offset           print at which byte of this file the file system begins\n"
    "  --appimage-help             show this list\n";

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// A new folder for this run alone, where programs may be started. It is gone with the object.
class RunFolder {
 public:
  RunFolder() {
    const std::string cache = Variable("XDG_CACHE_HOME");
    for (std::string base : {Variable("TMPDIR"), std::string("/tmp"), cache,
                             Variable("HOME") + "/.cache", std::string("/var/tmp")}) {
      struct statvfs status {};
      if (base.empty() || statvfs(base.c_str(), &status) != 0) continue;
      if ((status.f_flag & (ST_NOEXEC | ST_RDONLY)) != 0) continue;
      base += "/.mount_kelvanXXXXXX";
      if (mkdtemp(base.data()) == nullptr) continue;
      path_ = base;
      return;
    }
    throw Fault("there is no folder for its files; set TMPDIR to one where programs may run");
  }
  ~RunFolder() {
    std::error_code error;
    if (extracted) {
      fs::remove_all(path_, error);
    } else {
      fs::remove(path_, error);
    }
  }
  RunFolder(const RunFolder&) = delete;
  RunFolder& operator=(const RunFolder&) = delete;
  [[nodiscard]] const std::string& path() const { return path_; }

  bool extracted = false;  // else nothing in it is removed, for it may be mounted still

 private:
  std::string path_;
};

// Signals come as something to read, so that none is missed between two answers to the system.
class Signals {
 public:
  Signals() {
    sigemptyset(&ours_);
    for (const int signal : {SIGCHLD, SIGTERM, SIGINT, SIGHUP}) sigaddset(&ours_, signal);
    sigprocmask(SIG_BLOCK, &ours_, &before_);
    descriptor_ = signalfd(-1, &ours_, SFD_CLOEXEC);
  }
  ~Signals() { close(descriptor_); }
  Signals(const Signals&) = delete;
  Signals& operator=(const Signals&) = delete;
  void Free() const { sigprocmask(SIG_SETMASK, &before_, nullptr); }
  [[nodiscard]] int descriptor() const { return descriptor_; }
  [[nodiscard]] signalfd_siginfo Next() const {
    signalfd_siginfo information{};
    if (read(descriptor_, &information, sizeof information) < 0) information.ssi_signo = 0;
    return information;
  }

 private:
  sigset_t ours_{};
  sigset_t before_{};
  int descriptor_ = -1;
};

// The next signal; until then the mounted folder, if any, is served.
signalfd_siginfo ServeUntilSignal(const Signals& signals, Mount* mount) {
  while (true) {
    std::array<pollfd, 2> sources{{{signals.descriptor(), POLLIN, 0},
                                   {mount == nullptr ? -1 : mount->descriptor(), POLLIN, 0}}};
    if (poll(sources.data(), sources.size(), -1) < 0) continue;
    if (sources[1].revents != 0) mount->Answer();
    if (sources[0].revents != 0) return signals.Next();
  }
}

[[noreturn]] void Become(const std::string& folder, const std::string& file,
                         std::vector<char*> arguments) {
  // A relative path of PWD may be a link; the system's own answer is whole.
  std::array<char, PATH_MAX> here{};
  if (getcwd(here.data(), here.size()) != nullptr) setenv("OWD", here.data(), 1);
  setenv("APPIMAGE", file.c_str(), 1);
  setenv("APPDIR", folder.c_str(), 1);
  setenv("ARGV0", arguments[0], 1);
  std::string program = folder + "/AppRun";
  arguments[0] = program.data();
  arguments.push_back(nullptr);
  execv(program.c_str(), arguments.data());
  std::fprintf(stderr, "%s cannot be started: %s\n", program.c_str(), std::strerror(errno));
  _exit(kCannot);
}

// What the program's own end was, as a shell tells it.
int WaitFor(pid_t program, const Signals& signals, Mount* mount) {
  while (true) {
    const signalfd_siginfo came = ServeUntilSignal(signals, mount);
    const auto signal = static_cast<int>(came.ssi_signo);
    // A terminal sends Ctrl + C to the program as well; what comes from a process is passed on.
    if (signal != SIGCHLD && (signal != SIGINT || came.ssi_code <= 0)) kill(program, signal);
    int status = 0;
    if (waitpid(program, &status, WNOHANG) != program) continue;
    constexpr int kOfSignals = 128;
    return WIFEXITED(status) ? WEXITSTATUS(status) : kOfSignals + WTERMSIG(status);
  }
}

int Run(Image& image, const std::string& file, const std::vector<char*>& arguments, bool extract) {
  const Signals signals;
  RunFolder folder;
  std::unique_ptr<Mount> mount = extract ? nullptr : Mount::Try(image, folder.path());
  if (!mount) {
    folder.extracted = true;
    image.Extract(folder.path());
  }
  const pid_t program = fork();
  if (program < 0) throw Fault(std::string("no process can be started: ") + std::strerror(errno));
  if (program == 0) {
    signals.Free();
    Become(folder.path(), file, arguments);
  }
  return WaitFor(program, signals, mount.get());
}

int ShowUntilSignal(Image& image) {
  const Signals signals;
  const RunFolder folder;
  const std::unique_ptr<Mount> mount = Mount::Try(image, folder.path());
  if (!mount) throw Fault("this system cannot mount it; --appimage-extract writes its files");
  std::puts(folder.path().c_str());
  std::fflush(stdout);
  while (ServeUntilSignal(signals, mount.get()).ssi_signo == SIGCHLD) continue;
  return 0;
}

int ExtractHere(Image& image) {
  const std::string folder = "squashfs-root";
  std::error_code error;
  fs::create_directory(folder, error);
  if (error) throw Fault("the folder \"" + folder + "\" cannot be made: " + error.message());
  image.Extract(folder);
  std::puts(folder.c_str());
  return 0;
}

int Main(std::vector<char*> arguments) {
  const std::string file = fs::read_symlink("/proc/self/exe");
  const std::string_view option = arguments.size() > 1 ? arguments[1] : "";
  if (option == "--appimage-help") return std::printf(kHelp, arguments[0]) > 0 ? 0 : kCannot;
  Image image(file);
  if (option == "--appimage-offset") {
    std::printf("%llu\n", static_cast<unsigned long long>(image.offset()));
    return 0;
  }
  if (option == "--appimage-extract") return ExtractHere(image);
  if (option == "--appimage-mount") return ShowUntilSignal(image);
  const bool asked = option == "--appimage-extract-and-run";
  if (asked) arguments.erase(arguments.begin() + 1);
  return Run(image, file, arguments, asked || !Variable("APPIMAGE_EXTRACT_AND_RUN").empty());
}

}  // namespace
}  // namespace dtb::appimage

int main(int argc, char** argv) {
  try {
    return dtb::appimage::Main({argv, argv + argc});
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "kelvane-diamond-table: %s\n", fault.what());
    return dtb::appimage::kCannot;
  }
}
