// Names for files that the program writes.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace dtb {

// The text as a part of a file's name that every file system takes: what some system forbids stands
// as "_" (the characters <>:"/\|?*, control characters and bytes that are no UTF-8), nothing blank
// or dotted at its end, "_CON" for the name of a device of Windows, and never longer than 80 bytes,
// so that three parts fit into the 255 that a name may have.
[[nodiscard]] std::string SafeNamePart(std::string_view text);

// "name.xlsx" in the folder, or "name (2).xlsx", "name (3).xlsx", ... where files of these names
// are there already.
[[nodiscard]] std::filesystem::path FreeFile(const std::filesystem::path& folder,
                                             const std::string& name, const std::string& ending);

}  // namespace dtb
