// Where the program finds its teams, pictures and database.
#pragma once

#include <QString>

namespace dtb {

struct ProgramFolder {
  QString path;
  QString complaint;  // "": all is well; else what the person should know
};

// Where an installed program has the files that come with it: `../share/kelvane-diamond-table` of
// the executable's folder, or `shipped` in it. It need not be there.
[[nodiscard]] QString SharedFolder(const QString& executableFolder);

// Where the person's own folder is: `table` beside the executable, if the program came with one, to
// be carried about; else one of the person's account.
struct PersonalFolder {
  QString path;
  QString settings;  // the file; "": where Qt has them for this account
};
[[nodiscard]] PersonalFolder FindPersonalFolder(const QString& executableFolder);

// The folder of the executable, if the program's files lie beside it. An installed program has a
// folder of the person's own instead, filled from the shared one: there a file
// belongs to the person once changed, added or deleted; only untouched files are renewed. A fill
// that was broken off is finished by the next start. An empty database comes last, once, and only
// where no copies of one stand; so until it is there, a folder that cannot be filled holds nothing
// of the person's, and the program runs from the shared one meanwhile.
[[nodiscard]] ProgramFolder FindProgramFolder(const QString& executableFolder,
                                              const QString& personalFolder);

// Fills a folder from the files that ship, after the same rules, with an empty database of that
// file. Returns "" or what could not be put there, and why.
[[nodiscard]] QString FillFolder(const QString& shipped, const QString& folder,
                                 const QString& emptyDatabase);

}  // namespace dtb
