// Files on the disk that are made of a season.
#pragma once

#include <filesystem>
#include <string>

namespace dtb::archive {

// What stands where a file is to go.
enum class FileState { Nothing, TheSame, Another };
[[nodiscard]] FileState WhatStands(const std::filesystem::path& file, const std::string& bytes);

// Puts the bytes into the file, whole or not at all, in place of what was there; makes its
// folder where that is missing. Throws ProgramError, in plain words, if it cannot.
void WriteTeamFile(const std::filesystem::path& file, const std::string& bytes);

}  // namespace dtb::archive
