// Starts the board.
#include <QCoreApplication>
#include <QStandardPaths>

#include "platform/paths.h"
#include "platform/qt/program_folder.h"
#include "platform/qt/qt_text.h"
#include "windows/application.h"
#include "windows/desk.h"

int main(int argc, char** argv) {
  const dtb::Application application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("DTB_v102"));
  QApplication::setDesktopFileName(QStringLiteral("example.kelvane_diamond_table"));
  dtb::DressApplication();
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  const dtb::ProgramFolder folder = dtb::FindProgramFolder(
      QCoreApplication::applicationDirPath(), data + QStringLiteral("/kelvane-diamond-table"));
  dtb::Desk::Setup setup;
  setup.programFolder = dtb::PathOf(dtb::FromQt(folder.path));
  dtb::Desk desk(setup);
  desk.Open();
  if (!folder.failures.isEmpty()) {
    desk.board().platform.boxes.Show(
        "These files could not be put into your folder:\n" +
            dtb::FromQt(folder.failures.mid(0, 5).join(QLatin1Char('\n'))),
        dtb::BoxIcon::Warning, "Your folder");
  }
  return QApplication::exec();
}
