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

A script is a text file of gestures, one a line. A folder stands for the game in it: its clicks.txt is
played, saved, and compared with the figures in its expected.txt. Several scripts are each played in a
fresh program. The exit status is 0 where all went well, 1 where not, 2 where the command makes no sense.

  -h, --help           show this
      --version        show the version
      --gestures       list the gestures and their forms
      --check          play nothing; tell of every line that has not its form, and of files not there

Playing
      --show           play in windows that can be watched
      --keys           record outcomes by their keys instead of the mouse
      --undo           at the end take all of it back and do it again; each state must come again
      --kill-every N   end the program as a power cut would after every N lines, and play on
      --program DIR    the folder of the program's files, if it is not the one that came with this
      --table DIR      play in a folder that stays, with its database and the game in progress

What comes out
      --dump           at the end print the name and value of all that is not empty
      --shots DIR      draw the windows: keep a picture at each SHOT line, and one for each half-inning
      --size WxH       the size of the screen, such as 1920x1080; 1366x768 unless told otherwise
      --database FILE  save the games into this database, which is made where it does not stand;
                       games of several folders are gathered in it
      --proof-right    let the proof of each game put right what it can before the save

Teams
  teams makes team files of a season's archive, a zip or a folder, into FOLDER: of the line-up used
  most, or with --game that of one game. --batting and --pitching write the figures counted as tables;
  --replace writes over team files that differ.

Old databases
  import makes a new database NEW.mdb of an old one of the Jet format, with all its games, and compares
  counts and sums of both. OLD.mdb stays as it is.
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
         "\nCLICK, ROW, CELL and TAB may begin with CTRL, SHIFT, RIGHT and DBL, in this order, "
         "such as\n"
         "CTRLCLICK or DBLROW; DRAGROW with CTRL and SHIFT. Empty lines and those with # are "
         "remarks.\n";
}

}  // namespace dtb::replay
