#include "replay/play_table.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QFile>

#include "platform/paths.h"
#include "platform/qt/qt_text.h"

namespace dtb::replay {

std::optional<std::filesystem::path> ScriptedDialogs::OpenFile(const OpenFileRequest&) {
  return answers.isEmpty() ? std::nullopt : answers.takeFirst();
}

PlayTable::PlayTable() {
  const QDir program(QStringLiteral(DTB_PROGRAM_FOLDER));
  for (const QString& name : program.entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
    QFile::link(program.filePath(name), Folder(name));
  }
  QFile schema(Folder("schema.sql"));
  if (schema.open(QIODevice::ReadOnly)) {
    SQLite::Database(FromQt(Folder("DTB.mdb")), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec(schema.readAll().toStdString());
  }
  Desk::Setup setup;
  setup.programFolder = PathOf(FromQt(folder_.path()));
  setup.settingsFile = Folder("settings.ini");
  setup.dialogs = &dialogs_;
  setup.pages = &pages_;
  desk_ = std::make_unique<Desk>(setup);
}

}  // namespace dtb::replay
