// Files on the disk that are made of a season.
#pragma once

#include <filesystem>
#include <string>

namespace dtb::seasons {

// What stands where a file is to go.
enum class Standing { Nothing, TheSame, Another };
[[nodiscard]] Standing WhatStands(const std::filesystem::path& file, const std::string& bytes);

// Puts the bytes into the file, whole or not at all, in the place of what was there; makes its
// folder where that is missing. Throws ProgramError, in plain words, if it cannot.
void WriteTeamFile(const std::filesystem::path& file, const std::string& bytes);

}  // namespace dtb::seasons
