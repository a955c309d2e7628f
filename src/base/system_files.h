// Files as an operating system has them, for base/whole_file.h alone. There is one source for each
// system, in platform. A result is 0, or the error number of <cerrno> that tells what is wrong.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace dtb::system {

// Why nothing can be put in place of a file: a folder or a device has its name, or it may not
// be changed. 0 as well where nothing stands there.
[[nodiscard]] int FaultOfPlace(const std::filesystem::path& place);

// Makes an empty file, which whoever may read the file `like` may read; EEXIST where a file of its
// name stands.
[[nodiscard]] int MakeFile(const std::filesystem::path& file, const std::filesystem::path& like);

// How far bytes have come when they count as written.
enum class Reach { System, Disk };
// Puts the bytes into a file, in place of all that it has; makes it if there is none.
[[nodiscard]] int WriteFile(const std::filesystem::path& file, std::string_view bytes, Reach reach);
// Forces what others wrote into a file to the disk.
[[nodiscard]] int ForceFile(const std::filesystem::path& file);
// The same for all files of a folder.
[[nodiscard]] int ForceFolder(const std::filesystem::path& folder);

// Gives a file or folder another name in one step; a file that stands there goes.
[[nodiscard]] int RenameFile(const std::filesystem::path& from, const std::filesystem::path& to);

// As ReadWholeFile.
[[nodiscard]] std::optional<std::string> ReadFile(const std::filesystem::path& file,
                                                  std::size_t most);

// A number that no other running program has.
[[nodiscard]] unsigned long ProcessNumber();

}  // namespace dtb::system
