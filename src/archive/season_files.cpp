#include "archive/season_files.h"

#include <system_error>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/whole_file.h"

namespace dtb::archive {

FileState WhatStands(const std::filesystem::path& file, const std::string& bytes) {
  std::error_code fault;
  const auto status = std::filesystem::symlink_status(file, fault);
  if (status.type() == std::filesystem::file_type::not_found) return FileState::Nothing;
  if (!std::filesystem::is_regular_file(file, fault) ||
      std::filesystem::file_size(file, fault) != bytes.size()) {
    return FileState::Another;
  }
  return ReadWholeFile(file) == bytes ? FileState::TheSame : FileState::Another;
}

void WriteTeamFile(const std::filesystem::path& file, const std::string& bytes) {
  std::error_code fault;
  if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), fault);
  if (fault) {
    throw ProgramError(
        error_number::kPathOrFileAccess,
        "The file \"" + TextOf(file) + "\" could not be written: its folder cannot be made.");
  }
  WriteWholeFile(file, bytes);
}

}  // namespace dtb::archive
