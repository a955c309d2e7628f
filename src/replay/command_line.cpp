#include "replay/command_line.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <array>

#include "replay/gesture_forms.h"
#include "replay/gestures.h"
#include "replay/import_command.h"
#include "replay/teams_command.h"

namespace dtb::replay {
namespace {

constexpr const char* kName = "kelvane-diamond-table-replay";

constexpr const char* kHelp = R"(Plays table scripts at the board as a person would, click by click.

A script is a text file of gestures, one a line. Given a folder, its clicks.txt is played, the game saved,
and its figures compared with expected.txt. Each script is played in a fresh program. The exit status is
0 on success, 1 on failure, 2 if the command line is invalid.

  -h, --help           show this
      --version        show the version
      --gestures       list the gestures and their syntax
      --check          play nothing; report malformed lines and missing files

Playing
      --show           play in visible windows
      --keys           record outcomes by their keys instead of the mouse
      --undo           at the end, undo and redo everything, and check that each state returns
      --kill-every N   simulate a power cut after every N lines, recover, and play on
      --program DIR    the folder of the program's files; default: the one installed with this
      --table DIR      play in this folder and keep it, with its database and the game in progress

What comes out
      --dump           at the end, print the name and value of everything that is not empty
      --shots DIR      save a picture at each SHOT line and after each half-inning
      --size WxH       the size of the screen, such as 1920x1080; default: 1366x768
      --database FILE  save the games of all folders into this database; it is created if missing
      --proof-right    before each save, correct what the proof of the game can correct

Teams
  teams makes team files from a season's archive, a zip or a folder, in FOLDER: with the line-up that
  each team used most, with --usual-nine the usual player at each position or, with --game, both
  line-ups of one game. --batters and --pitchers are the forms of the remarks behind "=", with the words
  that the window "From a season..." knows, as in --batters "{pos} {bats} {avg}{few} {at}"; --last-first
  writes family names first. --batting and --pitching write tables of the figures counted; --replace
  overwrites team files that differ.

Old databases
  import copies all games of an old database of the Jet format into a new one, NEW.mdb, and compares
  counts and sums of both. OLD.mdb is not changed.
)";

constexpr std::array kFlags{"help", "version", "gestures", "check",      "show",
                            "keys", "undo",    "dump",     "proof-right"};
constexpr std::array kValues{"shots", "size", "database", "table", "program", "kill-every", "from"};

QSize SizeOf(const QString& given) {
  const QSize size(given.section('x', 0, 0).toInt(), given.section('x', 1).toInt());
  if (!size.isEmpty()) return size;
  throw Refused("--size takes a width and a height such as 1366x768, not \"" + given + '"');
}

qsizetype LinesOfKill(const QString& given) {
  bool good = false;
  const qsizetype lines = given.toLongLong(&good);
  if (good && lines > 0) return lines;
  throw Refused("--kill-every takes a number of lines, not \"" + given + '"');
}

}  // namespace

CommandLine CommandLineOf(const QStringList& arguments) {
  QCommandLineParser parser;
  for (const char* flag : kFlags) {
    const bool help = QLatin1String(flag) == QLatin1String("help");
    parser.addOption(QCommandLineOption(help ? QStringList{flag, "h"} : QStringList{flag}));
  }
  for (const char* option : kValues) parser.addOption({option, {}, "VALUE"});
  if (!parser.parse(QStringList{kName} + arguments)) throw Refused(parser.errorText());
  CommandLine line;
  line.scripts = parser.positionalArguments();
  line.help = parser.isSet("help");
  line.version = parser.isSet("version");
  line.gestures = parser.isSet("gestures");
  line.check = parser.isSet("check");
  line.table = parser.value("table");
  line.program = parser.value("program");
  line.player.show = parser.isSet("show");
  line.player.keys = parser.isSet("keys");
  line.player.undo = parser.isSet("undo");
  line.player.dump = parser.isSet("dump");
  line.player.proofRight = parser.isSet("proof-right");
  line.player.pictures = parser.value("shots");
  line.player.database = parser.value("database");
  line.player.from = parser.value("from").toLongLong();
  if (parser.isSet("size")) line.player.screen = SizeOf(parser.value("size"));
  if (parser.isSet("kill-every")) line.player.killEvery = LinesOfKill(parser.value("kill-every"));
  if (parser.isSet("table") && !QFileInfo(line.table).isDir()) {
    throw Refused("there is no folder \"" + line.table + "\" for the table");
  }
  for (const char* flag : kFlags) {
    if (parser.isSet(flag)) line.options += QString("--") + flag;
  }
  for (const char* option : kValues) {
    if (parser.isSet(option)) line.options += QString("--%1=%2").arg(option, parser.value(option));
  }
  if (line.scripts.isEmpty() && !line.help && !line.version && !line.gestures) {
    throw Refused("a table script is missing, or the folder of a game");
  }
  return line;
}

QString HelpText() {
  return QString("Usage: %1 [OPTION]... SCRIPT|FOLDER...\n       %1 %2\n       %1 %3\n\n%4")
      .arg(kName, kTeamsUsage, kImportUsage, kHelp);
}

QString GesturesText() {
  QString text;
  for (const GestureForm& form : GestureForms()) {
    const QString words =
        *form.form == '\0' ? form.verb : QString("%1 %2").arg(form.verb, form.form);
    text += QString("%1 %2\n").arg(words, -32).arg(form.meaning);
  }
  return text +
         "\nCLICK, ROW, CELL and TAB may begin with CTRL, SHIFT, RIGHT and DBL, in this order,\n"
         "such as CTRLCLICK or DBLROW; DRAGROW with CTRL and SHIFT.\n"
         "Empty lines and lines that begin with # are comments.\n";
}

}  // namespace dtb::replay
