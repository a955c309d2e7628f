#include "shell/board_command.h"

#include <sstream>

#include "base/decoded_text.h"
#include "base/paths.h"
#include "base/version.h"
#include "base/whole_file.h"

namespace dtb {
namespace {

constexpr const char* kClicks = "clicks.txt";  // the script in the folder of a game

bool LoadsATeam(const std::filesystem::path& file) {
  constexpr std::size_t kMostBytes = 1U << 20U;  // a whole game takes a tenth
  std::istringstream lines(DecodedText(ReadWholeFile(file, kMostBytes).value_or("")));
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("LOAD visitors ") || line.starts_with("LOAD home ")) return true;
  }
  return false;
}

BoardCommand Refused(const std::string& why) { return {.refusal = why, .teams = {}, .script = {}}; }

}  // namespace

BoardCommand UnderstandBoardCommand(const std::vector<std::string>& arguments) {
  BoardCommand command;
  bool options = true;
  for (const std::string& argument : arguments) {
    if (options && argument == "--") {
      options = false;
      continue;
    }
    if (options && argument.size() > 1 && argument.starts_with('-')) {
      return Refused("there is no option " + argument);
    }
    const std::filesystem::path file = PathOf(argument);
    std::error_code fault;
    if (!std::filesystem::exists(file, fault)) {
      return Refused("there is no file \"" + argument + "\"");
    }
    const bool folder = std::filesystem::is_directory(file, fault);
    const bool game = folder && std::filesystem::is_regular_file(file / kClicks, fault);
    if (!game && !std::filesystem::is_regular_file(file, fault)) {
      return Refused("\"" + argument + "\" is not a file");
    }
    if (game || LoadsATeam(file)) {
      command.script = file;
    } else {
      command.teams.push_back(file);
    }
  }
  constexpr std::size_t kSides = 2;
  if (command.teams.size() > kSides) return Refused("only two teams can play");
  if (command.script && arguments.size() > 1) return Refused("a table script is opened alone");
  return command;
}

std::string BoardHelp() {
  return std::string("Usage: kelvane-diamond-table [TEAM [TEAM]] | [SCRIPT | GAME]\n\n") +
         kProgramTitle +
         ": a board to set beside a tabletop baseball game.\n\n"
         "  TEAM         a team file for the visitors, a second one for the home team\n"
         "  SCRIPT       a table script, which is played in windows to be watched\n"
         "  GAME         a folder with the script of a game, clicks.txt\n"
         "  -h, --help   show this\n"
         "  --version    show the version\n\n"
         "The options of every Qt program, such as -platform, are understood.\n";
}

}  // namespace dtb
