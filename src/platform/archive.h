// A folder full of files that came as one: packed into a zip, or unpacked. Any thread may
// open one; it belongs to that thread alone, on which `goOn` is called.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace dtb {

// What an archive may hold at most, so that a file made to do harm fills neither memory nor time.
namespace archive_limit {
inline constexpr std::size_t kFiles = 20'000;
inline constexpr std::uint64_t kFileBytes =
    std::uint64_t{32} * 1024 * 1024;  // of one file, unpacked
inline constexpr std::uint64_t kAllBytes =
    std::uint64_t{1024} * 1024 * 1024;  // of all that is read
}  // namespace archive_limit

// Hears the share of the work that is done, from 0 to 1, at every moment of it; false stops it.
using GoOn = std::function<bool(double share)>;
[[nodiscard]] inline bool Always(double /*share*/) { return true; }

struct ArchivedFile {
  std::string name;         // with the folders inside the archive, as it stands there
  std::uint64_t bytes = 0;  // unpacked, as the archive says
};

// One archive, open for reading. Nothing of it is ever written to a disk.
class Archive {
 public:
  virtual ~Archive() = default;

  // All files, in the order of the archive; folders are none.
  [[nodiscard]] virtual const std::vector<ArchivedFile>& files() const = 0;

  // Puts the whole contents of one file into `bytes`, in place of what was there; false if it
  // was stopped. Throws ProgramError, in plain words and with the file's name, for a file that is
  // damaged, longer, shorter or other than the archive says, encrypted, packed by a method that is
  // not read, gone, or beyond a limit whatever the archive says of its size.
  virtual bool Read(std::size_t file, std::string& bytes, const GoOn& goOn) = 0;
};

class Archives {
 public:
  virtual ~Archives() = default;

  // Opens a zip or a folder; nothing if it was stopped. Throws ProgramError, in plain words, for
  // what is missing, neither of the two, unreadable, or has more files than the limit, and for a
  // zip whose directory is damaged.
  [[nodiscard]] virtual std::unique_ptr<Archive> OpenArchive(
      const std::filesystem::path& zipOrFolder, const GoOn& goOn) = 0;
};

}  // namespace dtb
