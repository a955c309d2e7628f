#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdlib>
#include <fstream>

#include "bench/pairs.h"
#include "windows/desk.h"

namespace {

// The offscreen platform tells of each window what it cannot do.
void TellFailuresAlone(QtMsgType type, const QMessageLogContext& /*place*/, const QString& text) {
  if (type != QtCriticalMsg && type != QtFatalMsg) return;
  std::fprintf(stderr, "%s\n", qPrintable(text));
  if (type == QtFatalMsg) std::abort();
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(TellFailuresAlone);
  QApplication application(argc, argv);
  dtb::DressApplication();
  benchmark::Initialize(&argc, argv);
  benchmark::ConsoleReporter figures;
  std::ofstream nobody;  // hears of the machine and of how the library was built
  figures.SetErrorStream(&nobody);
  benchmark::RunSpecifiedBenchmarks(&figures);
  dtb::PrintRatios();
  return 0;
}
