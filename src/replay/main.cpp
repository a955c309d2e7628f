// Plays table scripts through the real windows and compares the figures of whole games.
#include <QApplication>
#include <QProcess>
#include <QTemporaryFile>
#include <QTimer>
#include <cstdio>
#include <string>
#include <vector>

#include "base/system.h"
#include "base/version.h"
#include "replay/box_page.h"
#include "replay/command_line.h"
#include "replay/game_state.h"
#include "replay/gestures.h"
#include "replay/import_command.h"
#include "replay/player.h"
#include "replay/program_files.h"
#include "replay/script_check.h"
#include "replay/teams_command.h"
#include "windows/application.h"

namespace dtb::replay {
namespace {

constexpr QSize kUsualScreen(1366, 768);
constexpr QSize kFrame(8, 40);  // of a window, as the usual desktops draw it

// A script alone, or the one of a game's folder with the figures that must come out.
struct Script {
  QString file;
  QString title;
  QString figures;  // "": none
};

Script ScriptOf(const QString& given) {
  const bool isFolder = QFileInfo(given).isDir();
  const QFileInfo file(isFolder ? QDir(given).filePath("clicks.txt") : given);
  if (isFolder && !file.exists()) {
    throw Refused(given +
                  ": is a folder without clicks.txt; expected: the folder of a game, or a script");
  }
  if (!file.exists()) throw Refused(given + ": there is no such script or folder");
  const bool isGame = file.fileName() == "clicks.txt";
  const QString figures = file.dir().filePath("expected.txt");
  return {file.filePath(), isGame ? file.absoluteDir().dirName() : file.fileName(),
          isGame && QFile::exists(figures) ? figures : QString()};
}

// A screen of this size, where no real one is used. Qt looks for the file that says so in the
// current folder, since the name of another would not survive a drive's colon.
void MakeScreen(QTemporaryFile& config, const QSize& size) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  if (!config.open()) return;
  config.write(QString(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": %1,
    "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                   .arg(size.width())
                   .arg(size.height())
                   .toUtf8());
  config.close();
  const QFileInfo file(config.fileName());
  QDir::setCurrent(file.path());
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
}

// Qt would end the program without a word of what to do.
void RequireScreen() {
  if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) return;
  if (!system::HasDisplay()) throw Refused("--show needs a display, and there is none here");
  const bool wayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
  if (wayland && qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "wayland");
}

// A script that kills its program goes on in the next one, at the table where the last one died.
int PlayOnAfterKills(const QStringList& arguments) {
  const QTemporaryDir table;
  QByteArray from = "0";
  for (;;) {
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(QApplication::applicationFilePath(),
                  QStringList{"--table", table.path(), "--from", from} + arguments);
    program.waitForFinished(-1);
    if (program.exitStatus() == QProcess::NormalExit) return program.exitCode();
    QFile next(table.filePath(Player::kNextLine));
    if (!next.open(QIODevice::ReadOnly)) return 1;
    const QByteArray line = next.readAll();
    if (line == from) return 1;
    from = line;
  }
}

// What is wrong with the script, on the error output; true for nothing.
bool HasItsForm(const Script& script, const QString& program) {
  const QStringList faults = FaultsOfScript(script.file, script.figures, program);
  for (const QString& fault : faults) std::fprintf(stderr, "%s\n", qUtf8Printable(fault));
  return faults.isEmpty();
}

int Check(const CommandLine& line) {
  const QString program = FindProgramFiles(line.program);
  int failed = 0;
  for (const QString& given : line.scripts) {
    const Script script = ScriptOf(given);
    if (!HasItsForm(script, program)) {
      failed = 1;
    } else {
      std::printf("%s: no syntax errors\n", qUtf8Printable(script.file));
    }
  }
  return failed;
}

int PlayGame(const Script& script, const CommandLine& line) {
  Player::Options options = line.player;
  options.save = !script.figures.isEmpty();
  PlayTable table(options.database, line.table, line.program);
  Player player(table, script.file, options);
  if (options.show && !options.screen.isEmpty()) table.desk.form1().resize(options.screen - kFrame);
  const RowsBefore before = options.save ? LastRows(table.desk.board()) : RowsBefore{};
  // What the start asks is answered like everything else.
  QTimer::singleShot(0, &player, [&table] { table.desk.Open(); });
  if (player.Run() != 0) return 1;
  QString report = QString("%1: played %2 lines").arg(script.title).arg(player.lines());
  QStringList differences;
  if (options.save) {
    const Comparison comparison = Compare(table.desk.board(), script.figures, before);
    differences = comparison.differences;
    differences +=
        BoxDifferences(table.desk.board(), QFileInfo(script.file).dir().filePath("box.txt"));
    report += differences.isEmpty() ? QString(", all figures right")
                                    : QString(", %1 figures wrong").arg(differences.size());
    report += QString("; %1 players with figures have no row in the database")
                  .arg(comparison.withoutRow.size());
    if (!comparison.withoutRow.isEmpty()) report += ": " + comparison.withoutRow.join("; ");
  }
  for (const QString& text : differences + QStringList{report}) std::puts(qUtf8Printable(text));
  return differences.isEmpty() ? 0 : 1;
}

// Each game in a fresh program.
int PlayGames(const CommandLine& line) {
  int failed = 0;
  for (const QString& script : line.scripts) {
    failed |= QProcess::execute(QApplication::applicationFilePath(),
                                line.options + QStringList{"--", script});
  }
  return failed == 0 ? 0 : 1;
}

int Play(const CommandLine& line, int argc, char** argv) {
  if (line.player.show) RequireScreen();
  if (!line.player.pictures.isEmpty() && !QDir().mkpath(line.player.pictures)) {
    throw Refused("the folder \"" + line.player.pictures + "\" for the pictures cannot be made");
  }
  if (line.scripts.size() > 1) {
    const QCoreApplication application(argc, argv);
    return PlayGames(line);
  }
  const Script script = ScriptOf(line.scripts.first());
  if (line.player.from == 0 && !HasItsForm(script, FindProgramFiles(line.program))) return 1;
  const bool kills = line.player.killEvery > 0 || LinesOf(script.file).contains("KILL");
  if (kills && line.table.isEmpty()) {
    const QCoreApplication application(argc, argv);
    return PlayOnAfterKills(line.options + QStringList{"--", script.file});
  }
  const QString here = QDir::currentPath();
  QTemporaryFile config;
  if (!line.player.show) {
    MakeScreen(config, line.player.screen.isEmpty() ? kUsualScreen : line.player.screen);
  }
  const Application application(argc, argv);
  QDir::setCurrent(here);
  // Qt has read it, and a script may kill the program.
  if (!line.player.show) config.remove();
  QApplication::setQuitOnLastWindowClosed(false);
  DressApplication();
  return PlayGame(script, line);
}

int Tell(const QString& text) {
  std::fputs(qUtf8Printable(text), stdout);
  return 0;
}

int Main(int argc, char** argv) {
  QStringList arguments;
  const std::vector<std::string> texts = system::Arguments(argc, argv);
  for (const std::string& text : texts) arguments += ToQt(text);
  if (arguments.value(0) == "teams" && arguments.value(1) != "--help" &&
      arguments.value(1) != "-h") {
    return RunTeams(arguments.mid(1));
  }
  if (arguments.value(0) == "import" && arguments.value(1) != "--help" &&
      arguments.value(1) != "-h") {
    return RunImport({texts.begin() + 1, texts.end()});
  }
  CommandLine line;
  try {
    line = CommandLineOf(arguments);
  } catch (const Refused& refused) {
    std::fprintf(stderr, "%s\n--help lists the options.\n", refused.what());
    return 2;
  }
  if (line.help) return Tell(HelpText());
  if (line.version) return Tell(ToQt(std::string(kProgramTitle) + ", " + VersionText() + '\n'));
  if (line.gestures) return Tell(GesturesText());
  try {
    return line.check ? Check(line) : Play(line, argc, argv);
  } catch (const Refused& refused) {
    std::fprintf(stderr, "%s\n", refused.what());
    return 1;
  }
}

}  // namespace
}  // namespace dtb::replay

int main(int argc, char** argv) { return dtb::replay::Main(argc, argv); }
