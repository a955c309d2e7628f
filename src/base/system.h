// What the program needs of the operating system beyond the standard library and Qt. There is one
// source for each system, in platform; base/whole_file.h has files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace dtb::system {

// The folder of the program that runs, behind all links; empty where the system does not tell it.
[[nodiscard]] std::filesystem::path ExecutableFolder();

// The arguments of this program in UTF-8, without its own name; `argc` and `argv` are those of
// main.
[[nodiscard]] std::vector<std::string> Arguments(int argc, char** argv);

// What stands behind the name of a program's file.
extern const char* const kProgramEnding;

// Where the program was started from a console window that it does not have itself, what it prints
// goes there from now on.
void PrintToConsole();

// Programs keep settings and data in one folder, rather than in one for each.
extern const bool kSettingsBesideData;

// There is a screen on which a window can be opened, as far as can be told without trying.
[[nodiscard]] bool HasDisplay();

// Forces the names in a folder to the disk. A folder that cannot be forced has them all the same.
void SyncFolder(const std::filesystem::path& folder);

// Keeps other programs of ours that ask in the same way out of a folder, as long as this object
// lives; waits until they are. Where the file system knows no locks, nothing is kept out.
class FolderHeld {
 public:
  explicit FolderHeld(const std::filesystem::path& folder);
  ~FolderHeld();
  FolderHeld(const FolderHeld&) = delete;
  FolderHeld& operator=(const FolderHeld&) = delete;

 private:
  std::intptr_t handle_;  // of the system; -1: none
};

// Ends the program at once, as a power cut would: nothing is written, closed or told any more.
[[noreturn]] void EndByForce();

}  // namespace dtb::system
