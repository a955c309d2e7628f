// The process that reads a Jet file for us.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace dtb::jet {

// Starts dtb_jet_reader on a file, with nothing but its output between it and us. It ends with this
// object at the latest.
class ReaderProcess {
 public:
  // Throws ProgramError where the program is missing or cannot be started.
  explicit ReaderProcess(const std::filesystem::path& file);
  ~ReaderProcess();
  ReaderProcess(const ReaderProcess&) = delete;
  ReaderProcess& operator=(const ReaderProcess&) = delete;

  // Adds what the process has written to the bytes; waits for that so many milliseconds. False at
  // the end of its output, however it ended. Throws ProgramError for a silence that is longer.
  bool Hear(std::string& bytes, int longestSilence);

 private:
  pid_t process_ = -1;
  int output_ = -1;
};

}  // namespace dtb::jet
