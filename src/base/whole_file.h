// Files of the person, written whole or not at all, and read whole: the one way in which the
// program writes a file. Any thread may read and write, but two never the same file at a time.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace dtb {

// Throws ProgramError about a file that could not be written, for an error number of the system, in
// the person's words: "The report "..." could not be written: the disk is full." `kind` is the word
// for the file.
[[noreturn]] void ThrowWriteFault(const std::string& kind, const std::filesystem::path& file,
                                  int fault);

// A new file that is written beside its place, under a name that nobody has, and moved there when
// it is whole. What is given up leaves nothing behind, and what stands in the place stays until
// then. A link keeps pointing where it points.
class FileBeside {
 public:
  // Makes the file, empty. Throws ProgramError where that cannot be done: no such folder, no right
  // to write there, a place taken by a folder, a device or a file that may not be changed.
  FileBeside(const std::filesystem::path& place, std::string kind);
  // Removes the file if it was not moved.
  ~FileBeside();
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  // Writes all bytes and forces them to the disk. Throws ProgramError if the disk does not take
  // them.
  void Write(std::string_view bytes) const;
  // Forces to the disk what others wrote into the file, and puts it in place. Throws ProgramError.
  void MoveIntoPlace();

 private:
  std::filesystem::path asked_;  // as the person knows it
  std::string kind_;
  std::filesystem::path place_;  // behind all links
  std::filesystem::path path_;
  bool moved_ = false;
};

// Puts the bytes in place of what stood in the file. When it returns they are on the disk;
// where it throws ProgramError, what stood there is unchanged.
void WriteWholeFile(const std::filesystem::path& file, std::string_view bytes,
                    const std::string& kind = "file");

// Writes a file of a folder that nobody looks into yet. It is safe once the folder was moved.
// Throws ProgramError.
void WriteDraft(const std::filesystem::path& file, std::string_view bytes, const std::string& kind);
// Forces such a folder to the disk and gives it its name, under which nothing may stand. Throws
// ProgramError.
void MoveFolderIntoPlace(const std::filesystem::path& draft, const std::filesystem::path& place,
                         const std::string& kind);

// The bytes of a file, of the first `most` at the most. Nothing for what is not there or cannot be
// read, and for what is no file: a folder, or a pipe or device, which would be waited for.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::filesystem::path& file,
                                                       std::size_t most = std::string::npos);

}  // namespace dtb
