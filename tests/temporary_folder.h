// Folders for tests.
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace dtb {

// A new, empty folder whose name begins so, among the system's temporary ones.
inline std::filesystem::path MakeTemporaryFolder(const std::string& name) {
  std::random_device random;
  for (;;) {
    auto folder = std::filesystem::temp_directory_path() / (name + std::to_string(random()));
    if (std::filesystem::create_directory(folder)) return folder;
  }
}

}  // namespace dtb
