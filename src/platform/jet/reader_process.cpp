#include "platform/jet/reader_process.h"

#include <system_error>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/system.h"

namespace dtb::jet {
namespace {

namespace fs = std::filesystem;

// Beside the program, or where the package has it.
fs::path ReaderProgram() {
  const std::string name = std::string("dtb_jet_reader") + system::kProgramEnding;
  std::error_code error;
  const fs::path folder = system::ExecutableFolder();
  for (const fs::path& place :
       {folder / name, folder / "../lib/games/kelvane-diamond-table" / name}) {
    if (fs::is_regular_file(place, error)) return place;
  }
  throw ProgramError(
      error_number::kNoComponent,
      "the program \"" + name + "\", which reads it, is missing in \"" + TextOf(folder) + "\".");
}

}  // namespace

ReaderProcess::ReaderProcess(const fs::path& file) try
    : process_(ReaderProgram(), fs::absolute(file)) {
} catch (const std::system_error& fault) {
  throw ProgramError(error_number::kNoComponent,
                     "the program that reads it, \"dtb_jet_reader\", cannot start: " +
                         fault.code().message() + ".");
}

bool ReaderProcess::Hear(std::string& bytes, int longestSilence) {
  const auto heard = process_.Hear(bytes, longestSilence);
  if (heard == system::ChildProcess::Heard::Silence) {
    throw ProgramError(error_number::kInvalidFileFormat,
                       "the file is damaged: reading it does not end.");
  }
  return heard == system::ChildProcess::Heard::Bytes;
}

}  // namespace dtb::jet
