// The files that leave the program: where they go and how they are named.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace dtb {

// The folder "Game Rpts" in the program's folder, made if it is missing. Throws ProgramError if it
// cannot be made.
[[nodiscard]] std::filesystem::path ReportsFolder(const Platform& platform);

// The text as a part of a file's name that every file system takes: what some system forbids stands
// as "_" (the characters <>:"/\|?*, control characters and bytes that are no UTF-8), nothing blank
// or dotted at its end, and never longer than 80 bytes, so that three parts fit into the 255 that a
// name may have.
[[nodiscard]] std::string SafeNamePart(std::string_view text);

// Says `told`, and in which folder a file that was just written lies; opens that folder if the
// person wants to see it.
void TellWhereItLies(Platform& platform, const std::string& told, const std::filesystem::path& file,
                     const std::string& title = {});

// "name.xlsx" in the folder, or "name (2).xlsx", "name (3).xlsx", ... where files of these names
// are there already.
[[nodiscard]] std::filesystem::path FreeFile(const std::filesystem::path& folder,
                                             const std::string& name, const std::string& ending);

}  // namespace dtb
