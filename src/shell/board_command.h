// What the board's command line asks for.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace dtb {

struct BoardCommand {
  std::string refusal;                       // "": it can be done; else one line that says why not
  std::vector<std::filesystem::path> teams;  // two at most: the visitors' comes first
  std::optional<std::filesystem::path> script;  // a table script, or the folder of a game with one
};

// Arguments without the program's name and without Qt's own options. A file is a table script if a
// line of it loads a team; any other is a team file.
[[nodiscard]] BoardCommand UnderstandBoardCommand(const std::vector<std::string>& arguments);

// What "--help" prints.
[[nodiscard]] std::string BoardHelp();

}  // namespace dtb
