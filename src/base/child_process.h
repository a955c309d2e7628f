// Other programs that this one starts. There is one source for each system, in platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace dtb::system {

// A program with nothing but its output between it and us: no input, no messages of errors, none of
// our environment. It ends with this object at the latest.
class ChildProcess {
 public:
  // Starts a program on a file. Throws std::system_error where that cannot be.
  ChildProcess(const std::filesystem::path& program, const std::filesystem::path& file);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  enum class Heard { Bytes, End, Silence };
  // Adds what the program has written to the bytes; waits for that so many milliseconds. Tells the
  // end of its output, however it ended, and a silence that is longer.
  [[nodiscard]] Heard Hear(std::string& bytes, int longestSilence);

 private:
  std::intptr_t process_ = -1;  // of the system
  std::intptr_t output_ = -1;
};

// What a program calls that was started so: it hands its output over byte for byte, and ends rather
// than take more seconds of the processor or, unless that is 0, more bytes of memory. If it breaks
// down, it does so silently.
void BeAChild(unsigned seconds, std::size_t memory);

// Lets another program go on in place of this one, with arguments in UTF-8. Returns only if it
// cannot be started.
void GoOnAs(const std::filesystem::path& program, const std::vector<std::string>& arguments);

}  // namespace dtb::system
