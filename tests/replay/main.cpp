// Plays table scripts through the real windows and compares the figures of whole games.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QProcess>
#include <QTemporaryFile>
#include <cstdio>

#include "replay/figures.h"
#include "replay/gestures.h"
#include "replay/player.h"

namespace {

using dtb::replay::Player;

constexpr QSize kUsualScreen(1366, 768);

void Print(const QString& line) { std::printf("%s\n", line.toUtf8().constData()); }

int Complain(const QString& line) {
  std::fprintf(stderr, "%s\n", line.toUtf8().constData());
  return 1;
}

// A screen of this size, where no real one is used.
void MakeScreen(QTemporaryFile& config, const QSize& size) {
  if (qEnvironmentVariable("QT_QPA_PLATFORM", "offscreen") != "offscreen") return;
  if (!config.open()) return;
  config.write(QString(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": %1,
    "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                   .arg(size.width())
                   .arg(size.height())
                   .toUtf8());
  config.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + config.fileName().toUtf8());
}

int PlayGame(const QString& given, Player::Options options) {
  const bool isFolder = QFileInfo(given).isDir();
  const QString script = isFolder ? given + "/clicks.txt" : given;
  const QFileInfo file(script);
  const QString expected = file.dir().filePath("expected.txt");
  const bool isGame = file.fileName() == "clicks.txt";
  const QString title = isGame ? QFileInfo(file.absolutePath()).fileName() : file.fileName();
  const bool compared = isGame && QFile::exists(expected);
  options.save = compared;
  dtb::replay::PlayTable table;
  Player player(table, script, options);
  dtb::Form1& form1 = table.desk().form1();
  if (options.show && options.screen.isValid()) form1.resize(options.screen - QSize(8, 40));
  table.desk().Open();
  if (const int status = player.Run(); status != 0) return status;
  const QString played = QString("%1: played %2 lines").arg(title).arg(player.lines());
  if (!compared) {
    Print(played);
    return 0;
  }
  const QStringList differences = dtb::replay::Differences(table.desk().board(), expected);
  for (const QString& difference : differences) Print(difference);
  Print(differences.isEmpty()
            ? played + ", all figures right"
            : QString("%1, %2 figures wrong").arg(played).arg(differences.size()));
  return differences.isEmpty() ? 0 : 1;
}

// Each game in a fresh program.
int PlayGames(QStringList arguments, const QStringList& games) {
  for (const QString& game : games) arguments.removeOne(game);
  bool failed = false;
  for (const QString& game : games) {
    const int status =
        QProcess::execute(QApplication::applicationFilePath(), arguments + QStringList{game});
    failed = failed || status != 0;
  }
  return failed ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv) {
  QCommandLineParser parser;
  parser.addOptions({{"show", "Play in windows."},
                     {"shots", "Keep pictures in DIR.", "DIR"},
                     {"size", "Play on a screen of this size.", "WxH"}});
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments += QString::fromLocal8Bit(argv[i]);
  const QString size = parser.parse(QStringList{argv[0]} + arguments) ? parser.value("size") : "";
  Player::Options options{parser.isSet("show"),
                          parser.value("shots"),
                          {size.section('x', 0, 0).toInt(), size.section('x', 1).toInt()}};
  const bool badSize = parser.isSet("size") && options.screen.isEmpty();
  if (!parser.errorText().isEmpty() || parser.positionalArguments().isEmpty() || badSize) {
    return Complain("Usage: dtb_replay [--show] [--shots DIR] [--size WxH] SCRIPT|FOLDER...");
  }
  if (!options.pictures.isEmpty()) QDir().mkpath(options.pictures);
  if (parser.positionalArguments().size() > 1) {
    const QCoreApplication application(argc, argv);
    return PlayGames(arguments, parser.positionalArguments());
  }
  QTemporaryFile config;
  if (!options.show) MakeScreen(config, parser.isSet("size") ? options.screen : kUsualScreen);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  dtb::DressApplication();
  try {
    return PlayGame(parser.positionalArguments().first(), options);
  } catch (const dtb::replay::Refused& refused) {
    return Complain(QString::fromUtf8(refused.what()));
  }
}
