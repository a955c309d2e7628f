#include <benchmark/benchmark.h>

#include <QApplication>

#include "bench/pairs.h"
#include "windows/desk.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  dtb::DressApplication();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  dtb::PrintRatios();
  return 0;
}
