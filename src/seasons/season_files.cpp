#include "seasons/season_files.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/paths.h"
#include "shell/program_error.h"

namespace dtb::seasons {

Standing WhatStands(const std::filesystem::path& file, const std::string& bytes) {
  std::error_code fault;
  const auto status = std::filesystem::symlink_status(file, fault);
  if (status.type() == std::filesystem::file_type::not_found) return Standing::Nothing;
  if (!std::filesystem::is_regular_file(file, fault) ||
      std::filesystem::file_size(file, fault) != bytes.size()) {
    return Standing::Another;
  }
  std::ifstream stream(file, std::ios::binary);
  const std::string there{std::istreambuf_iterator<char>(stream), {}};
  return there == bytes ? Standing::TheSame : Standing::Another;
}

void WriteWhole(const std::filesystem::path& file, const std::string& bytes) {
  const auto refuse = [&](const std::string& why) {
    throw ProgramError(error_number::kPathOrFileAccess,
                       "The file \"" + TextOf(file) + "\" cannot be written" + why);
  };
  std::error_code fault;
  if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), fault);
  if (fault) refuse(": its folder cannot be made.");
  if (std::filesystem::is_directory(file, fault)) refuse(": a folder has its name.");
  std::filesystem::path beside = file;
  beside += ".part";
  std::ofstream stream(beside, std::ios::binary | std::ios::trunc);
  if (!stream) refuse(": its folder may not be written to.");
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  if (stream) std::filesystem::rename(beside, file, fault);
  if (stream && !fault) return;
  std::error_code ignored;
  std::filesystem::remove(beside, ignored);
  refuse(". The disk may be full.");
}

}  // namespace dtb::seasons
