// Starts the board.
#include <QApplication>
#include <QCoreApplication>
#include <QDir>

#include "platform/paths.h"
#include "platform/qt/qt_text.h"
#include "windows/desk.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("DTB_v102"));
  dtb::DressApplication();
  dtb::Desk::Setup setup;
  setup.programFolder = dtb::PathOf(dtb::FromQt(QCoreApplication::applicationDirPath()));
  dtb::Desk desk(setup);
  desk.Open();
  return QApplication::exec();
}
