// Plays table scripts through the real windows and compares the figures of whole games.
#include <QApplication>
#include <QCommandLineParser>
#include <QProcess>
#include <QTemporaryFile>
#include <QTimer>
#include <cstdio>

#include "platform/zip/zip_archives.h"
#include "replay/game_state.h"
#include "replay/gestures.h"
#include "replay/player.h"
#include "seasons/teams_command.h"

namespace dtb::replay {
namespace {

constexpr QSize kUsualScreen(1366, 768);
constexpr QSize kFrame(8, 40);  // of a window, as the usual desktops draw it

// A screen of this size, where no real one is used.
void MakeScreen(QTemporaryFile& config, const QSize& size) {
  if (qEnvironmentVariable("QT_QPA_PLATFORM", "offscreen") != "offscreen" || !config.open()) return;
  config.write(QString(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": %1,
    "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                   .arg(size.width())
                   .arg(size.height())
                   .toUtf8());
  config.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + config.fileName().toUtf8());
}

QFileInfo ScriptOf(const QString& given) {
  return QFileInfo(QFileInfo(given).isDir() ? given + "/clicks.txt" : given);
}

bool Kills(const QString& given) {
  QFile script(ScriptOf(given).filePath());
  return script.open(QIODevice::ReadOnly) && ("\n" + script.readAll()).contains("\nKILL");
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

int PlayGame(const QString& given, const QString& kept, Player::Options options) {
  const QFileInfo script = ScriptOf(given);
  const bool isGame = script.fileName() == "clicks.txt";
  const QString title = isGame ? script.absoluteDir().dirName() : script.fileName();
  const QString expected = script.dir().filePath("expected.txt");
  options.save = isGame && QFile::exists(expected);
  PlayTable table(options.database, kept);
  Player player(table, script.filePath(), options);
  if (options.show && !options.screen.isEmpty()) table.desk.form1().resize(options.screen - kFrame);
  // What the start asks is answered like everything else.
  QTimer::singleShot(0, &player, [&table] { table.desk.Open(); });
  if (player.Run() != 0) return 1;
  QString report = QString("%1: played %2 lines").arg(title).arg(player.lines());
  QStringList differences;
  if (options.save) {
    const Comparison comparison = Compare(table.desk.board(), expected);
    differences = comparison.differences;
    report += differences.isEmpty() ? QString(", all figures right")
                                    : QString(", %1 figures wrong").arg(differences.size());
    report += QString("; %1 men with figures have no row in the database")
                  .arg(comparison.withoutRow.size());
    if (!comparison.withoutRow.isEmpty()) report += ": " + comparison.withoutRow.join("; ");
  }
  for (const QString& line : differences + QStringList{report}) std::puts(qUtf8Printable(line));
  return differences.isEmpty() ? 0 : 1;
}

// Each game in a fresh program.
int PlayGames(QStringList arguments, const QStringList& games) {
  int failed = 0;
  for (const QString& game : games) arguments.removeOne(game);
  for (const QString& game : games) {
    failed |= QProcess::execute(QApplication::applicationFilePath(), arguments + QStringList{game});
  }
  return failed == 0 ? 0 : 1;
}

// Needs no window and no toolkit.
int MakeTeams(const std::vector<std::string>& arguments) {
  ZipArchives archives;
  const seasons::CommandResult result = seasons::RunTeams(archives, arguments);
  std::fputs(result.errors.c_str(), stderr);
  std::fputs(result.output.c_str(), stdout);
  return result.exitCode;
}

int Main(int argc, char** argv) {
  if (argc > 1 && std::string_view(argv[1]) == "teams") return MakeTeams({argv + 2, argv + argc});
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments += QString::fromLocal8Bit(argv[i]);
  QCommandLineParser parser;
  parser.addOptions({{"show", {}},
                     {"keys", {}},
                     {"undo", {}},
                     {"shots", {}, "DIR"},
                     {"size", {}, "WxH"},
                     {"database", {}, "FILE"},
                     {"table", {}, "DIR"},
                     {"kill-every", {}, "LINES"},
                     {"from", {}, "LINE"}});
  const bool understood = parser.parse(arguments);
  const QStringList games = parser.positionalArguments();
  const QString size = parser.value("size");
  const Player::Options options{parser.isSet("show"),
                                parser.value("shots"),
                                {size.section('x', 0, 0).toInt(), size.section('x', 1).toInt()},
                                parser.value("database"),
                                parser.isSet("keys"),
                                parser.isSet("undo"),
                                parser.value("kill-every").toLongLong(),
                                parser.value("from").toLongLong(),
                                false};
  if (!understood || games.isEmpty() || size.isEmpty() != options.screen.isEmpty()) {
    std::fputs(
        "Usage: dtb_replay [--show] [--keys] [--undo] [--shots DIR] [--size WxH] "
        "[--database FILE] [--kill-every LINES] SCRIPT|FOLDER...\n"
        "       dtb_replay ",
        stderr);
    std::fputs(seasons::kTeamsUsage, stderr);
    std::fputs("\n", stderr);
    return 2;
  }
  const QString table = parser.value("table");
  if (parser.isSet("table") && !QFileInfo(table).isDir()) {
    std::fprintf(stderr, "there is no folder \"%s\" for the table\n", qUtf8Printable(table));
    return 2;
  }
  if (!options.pictures.isEmpty()) QDir().mkpath(options.pictures);
  QTemporaryFile config;
  if (games.size() == 1 && !options.show) {
    MakeScreen(config, size.isEmpty() ? kUsualScreen : options.screen);
  }
  if (games.size() > 1) {
    const QCoreApplication application(argc, argv);
    return PlayGames(arguments.mid(1), games);
  }
  const bool kills = options.killEvery > 0 || Kills(games.first());
  if (kills && table.isEmpty()) {
    const QCoreApplication application(argc, argv);
    return PlayOnAfterKills(arguments.mid(1));
  }
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  DressApplication();
  try {
    return PlayGame(games.first(), table, options);
  } catch (const Refused& refused) {
    std::fprintf(stderr, "%s\n", refused.what());
    return 1;
  }
}

}  // namespace
}  // namespace dtb::replay

int main(int argc, char** argv) { return dtb::replay::Main(argc, argv); }
