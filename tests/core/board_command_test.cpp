#include "shell/board_command.h"

#include "fake_platform.h"

namespace dtb {
namespace {

TEST(BoardCommandTest, OpensTeamsAndScriptsAndRefusesTheRest) {
  const FakePlatform fake;
  const auto file = [&fake](const std::string& name, const std::string& text) {
    const auto path = fake.folder / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path) << text;
    return path.string();
  };
  const std::string ants = file("Ants.txt", "Ann=P\nLOAD Smith=C\n");
  const std::string bees = file("-bees.csv", "Bob\n");
  const std::string script = file("game/clicks.txt", "# A game.\nLOAD visitors Ants.txt\n");
  const std::string game = (fake.folder / "game").string();
  const std::string folder = fake.folder.string();
  struct Case {
    std::vector<std::string> arguments;
    std::string refusal;
    std::size_t teams = 0;
    std::string script;
  };
  for (const Case& one :
       std::vector<Case>{{{}, "", 0, ""},
                         {{ants}, "", 1, ""},
                         {{ants, bees}, "", 2, ""},
                         {{"--", ants}, "", 1, ""},
                         {{script}, "", 0, script},
                         {{game}, "", 0, game},
                         {{"--halp"}, "there is no option --halp", 0, ""},
                         {{"-x", ants}, "there is no option -x", 0, ""},
                         {{"--", "-x"}, "there is no file \"-x\"", 0, ""},
                         {{folder}, "\"" + folder + "\" is not a file", 0, ""},
#ifndef _WIN32
                         {{"/dev/null"}, "\"/dev/null\" is not a file", 0, ""},
#endif
                         {{ants, bees, ants}, "only two teams can play", 0, ""},
                         {{script, ants}, "a table script is opened alone", 0, ""}}) {
    const BoardCommand command = UnderstandBoardCommand(one.arguments);
    const std::string first = one.arguments.empty() ? "no arguments" : one.arguments.front();
    EXPECT_EQ(command.refusal, one.refusal) << first;
    EXPECT_EQ(command.teams.size(), one.teams) << first;
    EXPECT_EQ(command.script.value_or("").string(), one.script) << first;
  }
}

}  // namespace
}  // namespace dtb
