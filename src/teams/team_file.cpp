#include "teams/team_file.h"

#include <fstream>
#include <string_view>
#include <system_error>

#include "base/decoded_text.h"
#include "base/paths.h"
#include "base/program_error.h"

namespace dtb {
namespace {

std::string ReadBytes(const std::filesystem::path& file) {
  const std::string name = std::string("\"").append(TextOf(file)).append("\"");
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (!std::filesystem::exists(status)) {
    const bool denied = error == std::errc::permission_denied;
    throw ProgramError(denied ? error_number::kPermissionDenied : error_number::kFileNotFound,
                       "The file " + name +
                           (denied ? " cannot be read: you lack permission." : " does not exist."));
  }
  if (!std::filesystem::is_regular_file(status)) {
    throw ProgramError(error_number::kPathOrFileAccess, name + " is not a file.");
  }
  const auto size = std::filesystem::file_size(file, error);
  if (!error && size > kLargestTeamFile) {
    throw ProgramError(error_number::kPathOrFileAccess,
                       "The file " + name + " is far too large to be a team file.");
  }
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    throw ProgramError(error_number::kPermissionDenied,
                       "The file " + name + " cannot be read: you lack permission.");
  }
  std::string bytes(static_cast<std::size_t>(error ? 0 : size), '\0');
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (stream.bad()) {
    throw ProgramError(error_number::kDeviceFault, "The file " + name + " could not be read.");
  }
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

}  // namespace

void ReadTeamFile(const std::filesystem::path& file,
                  const std::function<void(std::string line)>& giveLine) {
  const std::string text = DecodedText(ReadBytes(file));
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = rest.find_first_of("\r\n");
    const std::string_view line = rest.substr(0, end);
    if (!line.empty()) giveLine(std::string(line));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
}

}  // namespace dtb
