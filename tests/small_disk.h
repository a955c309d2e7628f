// A disk that is nearly full, for a process of its own.
#pragma once

#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace dtb {

inline constexpr int kPage = 4096;
inline constexpr int kPages = 96;
inline void WriteText(const char* file, const std::string& text) { std::ofstream(file) << text; }

// From now on the folder is a disk of its own, of 384 KB. False: this system allows none.
inline bool MountSmallDisk(const std::filesystem::path& folder) {
  const auto user = geteuid();
  if (user != 0) {
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    WriteText("/proc/self/uid_map", "0 " + std::to_string(user) + " 1");
  } else if (unshare(CLONE_NEWNS) != 0) {
    return false;
  }
  const std::string size = "size=" + std::to_string(kPages * kPage);
  return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("small", folder.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

// Leaves so many pages free; where there is no disk of its own, no file may grow at all.
inline void Fill(const std::filesystem::path& folder, bool small, int pagesLeft) {
  if (!small) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{0, 0};
    setrlimit(RLIMIT_FSIZE, &limit);
    return;
  }
  std::ofstream filler(folder / "filler", std::ios::binary);
  while (filler.write(std::string(kPage, 'x').data(), kPage).flush()) continue;
  filler.close();
  std::filesystem::resize_file(folder / "filler",
                               std::filesystem::file_size(folder / "filler") / kPage * kPage -
                                   static_cast<std::uintmax_t>(pagesLeft) * kPage);
}

// Runs in a process of its own, on a small disk; what it returns went wrong.
inline std::string OnSmallDisk(
    const std::filesystem::path& folder,
    const std::function<std::string(const std::filesystem::path&, bool small)>& body) {
  int pipe[2];
  if (::pipe(pipe) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    const bool small = MountSmallDisk(folder);
    const std::string wrong = body(folder, small);
    if (write(pipe[1], wrong.data(), wrong.size()) < 0) _exit(1);
    _exit(0);
  }
  close(pipe[1]);
  std::string wrong;
  for (char letter = 0; read(pipe[0], &letter, 1) == 1;) wrong += letter;
  close(pipe[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return status == 0 ? wrong : wrong + " (ended with " + std::to_string(status) + ")";
}

}  // namespace dtb
