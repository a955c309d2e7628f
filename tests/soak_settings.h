// What `./dtb soak` sets from outside, and how to see a fault again.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace dtb {

// A number from the environment: DTB_SEED, DTB_GESTURES, DTB_KILLS, DTB_DATABASES, DTB_DISKS.
inline unsigned FromOutside(const char* name, unsigned usual) {
  const char* given = std::getenv(name);
  return given == nullptr ? usual : static_cast<unsigned>(std::strtoul(given, nullptr, 10));
}

// The command that runs the present test once more as it ran now.
inline std::string Again() {
  std::string command;
  for (const char* name :
       {"DTB_SEED", "DTB_GESTURES", "DTB_KILLS", "DTB_DATABASES", "DTB_DISKS", "RC_PARAMS"}) {
    const char* given = std::getenv(name);
    if (given != nullptr) command += std::string(name) + "='" + given + "' ";
  }
  const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
  return "To see it again: " + command + "'" +
         std::filesystem::read_symlink("/proc/self/exe").string() +
         "' --gtest_filter=" + test.test_suite_name() + "." + test.name();
}

}  // namespace dtb
