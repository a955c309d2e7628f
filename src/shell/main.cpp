// Starts the board.
#include <QCoreApplication>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "base/child_process.h"
#include "base/paths.h"
#include "base/system.h"
#include "base/version.h"
#include "platform/qt/program_folder.h"
#include "platform/qt/qt_text.h"
#include "shell/board_command.h"
#include "teams/team_load.h"
#include "windows/application.h"
#include "windows/desk.h"

namespace dtb {
namespace {

constexpr int kCannot = 1;   // exit status of what cannot be done here
constexpr int kMisused = 2;  // and of a command line that makes no sense

int Print(const std::string& text) {
  std::fputs(text.c_str(), stdout);
  return 0;
}

int Refuse(int status, const std::string& why) {
  std::fprintf(stderr, "kelvane-diamond-table: %s\n", why.c_str());
  return status;
}

// Without a display Qt prints a page of advice and aborts.
void TellNoDisplay(QtMsgType type, const QMessageLogContext& /*place*/, const QString& /*text*/) {
  if (type != QtFatalMsg) return;
  const QByteArray wayland = qgetenv("WAYLAND_DISPLAY");
  const QByteArray display = wayland.isEmpty() ? qgetenv("DISPLAY") : wayland;
  std::_Exit(Refuse(kCannot, display.isEmpty()
                                 ? "there is no display to open its window on"
                                 : "the display \"" + display.toStdString() + "\" cannot be used"));
}

// Hands over to the program that plays table scripts; returns only if that cannot be.
int PlayScript(const std::filesystem::path& script) {
  for (const char* name : {"kelvane-diamond-table-replay", "dtb_replay"}) {
    const auto program = system::ExecutableFolder() / (std::string(name) + system::kProgramEnding);
    if (!std::filesystem::exists(program)) continue;
    system::GoOnAs(program, {"--show", "--", TextOf(script)});
  }
  return Refuse(kCannot, "the program that plays table scripts is not installed");
}

// A team for each side that has none: a game that was taken up goes on as it is.
void OpenTeams(Board& board, const std::vector<std::filesystem::path>& teams) {
  for (const std::filesystem::path& team : teams) {
    constexpr std::array kSides{Side::Visitors, Side::Home};
    const auto* side = std::ranges::find_if(
        kSides, [&board](Side one) { return SideOf(board, one).list.empty(); });
    if (side == kSides.end()) {
      return board.platform.boxes.Show("Both teams are on the board already, so \"" +
                                           TextOf(team.filename()) +
                                           "\" was not opened. LOAD opens it in place of one.",
                                       BoxIcon::Information);
    }
    OpenTeam(board, *side, team);
  }
}

int Main(int argc, char** argv) {
  system::PrintToConsole();
  const auto asked = [argc, argv](std::string_view option) {
    return std::find(argv + 1, argv + argc, option) != argv + argc;
  };
  if (asked("--help") || asked("-h")) return Print(BoardHelp());
  if (asked("--version")) return Print(std::string(kProgramTitle) + ", " + VersionText() + '\n');
  qInstallMessageHandler(TellNoDisplay);
  const Application application(argc, argv);
  qInstallMessageHandler(nullptr);

  std::vector<std::string> arguments;  // Qt has taken its own
  for (const QString& argument : QCoreApplication::arguments().mid(1)) {
    arguments.push_back(FromQt(argument));
  }
  const BoardCommand command = UnderstandBoardCommand(arguments);
  if (!command.refusal.empty()) {
    return Refuse(kMisused, command.refusal + "; --help lists the options");
  }
  if (command.script) return PlayScript(*command.script);

  QApplication::setApplicationName(QStringLiteral("DTB_v102"));
  QApplication::setDesktopFileName(QStringLiteral("example.kelvane_diamond_table.board"));
  DressApplication();
  const QString program = QCoreApplication::applicationDirPath();
  const PersonalFolder personal = FindPersonalFolder(program);
  const ProgramFolder folder = FindProgramFolder(program, personal.path);
  Desk::Setup setup;
  setup.settingsFile = personal.settings;
  setup.programFolder = PathOf(FromQt(folder.path)).make_preferred();
  Desk desk(setup);
  desk.Open();
  if (!folder.complaint.isEmpty()) {
    desk.board().platform.boxes.Show(FromQt(folder.complaint), BoxIcon::Warning, "Your folder");
  }
  OpenTeams(desk.board(), command.teams);
  return QApplication::exec();
}

}  // namespace
}  // namespace dtb

int main(int argc, char** argv) { return dtb::Main(argc, argv); }
