// Where the program finds its teams, pictures and database.
#pragma once

#include <QString>
#include <QStringList>

namespace dtb {

struct ProgramFolder {
  QString path;
  QStringList failures;  // files that could not be put there
};

// The folder of the executable, if the program's files lie beside it. An installed program has a
// folder of the person's own instead, filled from `../share/kelvane-diamond-table`: there a file
// belongs to the person once changed, added or deleted; only untouched files are renewed.
[[nodiscard]] ProgramFolder FindProgramFolder(const QString& executableFolder,
                                              const QString& personalFolder);

}  // namespace dtb
