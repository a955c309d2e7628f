#include "replay/program_files.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include "base/paths.h"
#include "base/system.h"
#include "platform/qt/program_folder.h"
#include "platform/qt/qt_text.h"
#include "replay/gestures.h"

namespace dtb::replay {

QString FindProgramFiles(const QString& given) {
  // Asked of the system, since there may be no application yet.
  const QDir executables(ToQt(TextOf(system::ExecutableFolder())));
  QStringList folders{given};
  if (given.isEmpty()) {
    folders = {executables.path(), executables.filePath("program"),
               SharedFolder(executables.path())};
  }
  for (const QString& folder : folders) {
    if (QFileInfo(folder + "/schema.sql").isFile()) return QDir(folder).absolutePath();
  }
  throw Refused("the program's own files are not found: no schema.sql in " +
                folders.join(", nor in ") + "; --program names their folder");
}

}  // namespace dtb::replay
