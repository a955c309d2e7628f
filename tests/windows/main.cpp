#include <gtest/gtest.h>

#include <QApplication>

#include "windows/desk.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  dtb::DressApplication();
  return RUN_ALL_TESTS();
}
