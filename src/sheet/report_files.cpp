#include "sheet/report_files.h"

#include <system_error>

#include "base/paths.h"
#include "base/program_error.h"

namespace dtb {
namespace {

constexpr const char* kReportsFolder = "Game Rpts";
}  // namespace

std::filesystem::path ReportsFolder(const Platform& platform) {
  std::filesystem::path folder = platform.programFolder / kReportsFolder;
  std::error_code fault;
  std::filesystem::create_directories(folder, fault);
  if (fault) {
    throw ProgramError(error_number::kPathOrFileAccess,
                       "The folder \"" + TextOf(folder) + "\" is missing and cannot be made.");
  }
  return folder;
}

void TellWhereItLies(Platform& platform, const std::string& told, const std::filesystem::path& file,
                     const std::string& title) {
  const std::string folder = TextOf(file.parent_path());
  const bool open =
      platform.boxes.Ask({told + "\n\nThe file is \"" + TextOf(file.filename()) +
                              "\" in the folder \"" + folder + "\".\n\nOpen the folder?",
                          title, true});
  if (open) platform.pages.Open(folder);
}

}  // namespace dtb
