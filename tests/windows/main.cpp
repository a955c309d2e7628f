#include <gtest/gtest.h>

#include "windows/application.h"
#include "windows/desk.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const dtb::Application application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  dtb::DressApplication();
  return RUN_ALL_TESTS();
}
