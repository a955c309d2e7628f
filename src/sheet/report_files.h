// Where the files that leave the program go.
#pragma once

#include <filesystem>
#include <string>

#include "platform/platform.h"

namespace dtb {

// The folder "Game Rpts" in the program's folder, made if it is missing. Throws ProgramError if it
// cannot be made.
[[nodiscard]] std::filesystem::path ReportsFolder(const Platform& platform);

// Says `told`, and in which folder a file that was just written lies; opens that folder if the
// person wants to see it.
void TellWhereItLies(Platform& platform, const std::string& told, const std::filesystem::path& file,
                     const std::string& title = {});

}  // namespace dtb
