// The process that reads a Jet file for us.
#pragma once

#include <filesystem>
#include <string>

#include "base/child_process.h"

namespace dtb::jet {

// Runs dtb_jet_reader on a file. It ends with this object at the latest.
class ReaderProcess {
 public:
  // Throws ProgramError where the program is missing or cannot be started.
  explicit ReaderProcess(const std::filesystem::path& file);

  // Adds what the process has written to the bytes; waits for that so many milliseconds. False at
  // the end of its output, however it ended. Throws ProgramError for a silence that is longer.
  bool Hear(std::string& bytes, int longestSilence);

 private:
  system::ChildProcess process_;
};

}  // namespace dtb::jet
