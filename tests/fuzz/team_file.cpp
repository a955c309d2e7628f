// Any bytes as a team file: read, and loaded for both sides.
#include "teams/team_file.h"

#include "base/utf8.h"
#include "core/fake_platform.h"
#include "fuzz.h"

using namespace dtb;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file = fuzz::WriteInput("Any=x.txt", fuzz::BytesOf(data, size));
  const auto read = [](const std::filesystem::path& from) {
    std::string text;
    ReadTeamFile(from, [&text](const std::string& line) {
      fuzz::Require(!line.empty(), "no line is empty");
      fuzz::Require(line.find_first_of("\r\n") == line.npos, "a line is one line");
      text += line + '\n';
    });
    return text;
  };
  const std::string text = read(file);
  // A mark before the first line is no part of it, wherever it stands.
  if (!text.starts_with("\xEF\xBB\xBF") && text.find('\0') == text.npos) {
    fuzz::Require(read(fuzz::WriteInput("Again.txt", text)) == text, "lines are UTF-8");
  }
  Game game(false);
  OpenTeam(game.board, Side::Visitors, file);
  OpenTeam(game.board, Side::Home, file);
  game.Play("pitch:v9 pitch:h0 atbat:v row:v0 1B GO undo: up:v edit:v drag:v1 drop:v3");
  return 0;
}
