// The whole program from its start to its first paint.
#include <QTemporaryDir>

#include "bench/first_paint.h"
#include "platform/paths.h"
#include "windows/desk.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  dtb::DressApplication();
  const QTemporaryDir folder;
  dtb::Desk::Setup setup;
  setup.programFolder = dtb::PathOf(DTB_PROGRAM_FOLDER);
  setup.settingsFile = folder.filePath(QStringLiteral("settings.ini"));
  dtb::Desk desk(setup);
  desk.form1().resize(1591, 945);  // the start size on a screen of 1920 x 1080
  const FirstPaint firstPaint(desk.form1().centralWidget());
  desk.Open();
  return QApplication::exec();
}
