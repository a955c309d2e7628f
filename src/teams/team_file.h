// The team file: a text file of one player a line.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace dtb {

// A team file larger than this is refused: 5,000 lines of 1,000 letters fit.
inline constexpr std::uintmax_t kLargestTeamFile = std::uintmax_t{16} * 1024 * 1024;

// Reads all lines of a team file as UTF-8, less the empty ones, and gives them out in order. A line
// ends at CR, CR LF or LF. Bytes that are not UTF-8 are read as Windows-1252; a byte order mark is
// no part of the first line, and UTF-16 with one is understood. Throws ProgramError, in plain
// words, for a file that is missing, no file, too large or cannot be read.
void ReadTeamFile(const std::filesystem::path& file,
                  const std::function<void(std::string line)>& giveLine);

}  // namespace dtb
