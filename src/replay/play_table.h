// The whole program at a table of its own, for scripts and tests.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/paths.h"
#include "platform/qt/qt_text.h"
#include "platform/quiet_desktop.h"
#include "windows/desk.h"

namespace dtb::replay {

inline std::filesystem::path PathOfFile(const QString& file) { return PathOf(FromQt(file)); }

// Gives the answers in order; a dialog that nobody prepared is cancelled.
struct ScriptedDialogs : FileDialogs {
  std::optional<std::filesystem::path> OpenFile(const OpenFileRequest& /*request*/) override {
    return Next();
  }
  std::optional<std::filesystem::path> SaveFile(const SaveFileRequest& /*request*/) override {
    return report ? report : Next();
  }
  std::optional<std::filesystem::path> OpenFolder(const std::string& /*title*/,
                                                  const std::filesystem::path& /*at*/) override {
    return Next();
  }
  std::optional<std::filesystem::path> Next() {
    return answers.isEmpty() ? std::nullopt : answers.takeFirst();
  }
  QList<std::optional<std::filesystem::path>> answers;
  std::optional<std::filesystem::path> report;  // takes every report; none: the next answer does
};

// A program folder of its own, with the given database, or else an empty one. A folder that is
// given stays, and is taken as it stands where it was filled before.
class PlayFolder {
 public:
  PlayFolder(const QString& database, const QString& given)
      : given_(given), own_(given.isEmpty() ? std::make_unique<QTemporaryDir>() : nullptr) {
    const QDir program(QStringLiteral(DTB_PROGRAM_FOLDER));
    if (QFile::exists(filePath("DTB.mdb"))) return;
    for (const QString& name : program.entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
      QFile::link(program.filePath(name), filePath(name));
    }
    if (!database.isEmpty()) {
      QFile::link(QFileInfo(database).absoluteFilePath(), filePath("DTB.mdb"));
      return;
    }
    QFile schema(filePath("schema.sql"));
    if (!schema.open(QIODevice::ReadOnly)) return;
    SQLite::Database(FromQt(filePath("DTB.mdb")), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec(schema.readAll().toStdString());
  }

  [[nodiscard]] QString path() const { return own_ ? own_->path() : given_; }
  [[nodiscard]] QString filePath(const QString& name) const { return QDir(path()).filePath(name); }

 private:
  QString given_;
  std::unique_ptr<QTemporaryDir> own_;
};

// A desk whose program folder and settings are made for it and go with it, and so does its database
// unless one is given. With a folder that stays, its game outlives it.
struct PlayTable {
  explicit PlayTable(const QString& database = {}, const QString& kept = {})
      : folder(database, kept), keepsGame(!kept.isEmpty()) {}

  PlayFolder folder;
  bool keepsGame;
  ScriptedDialogs dialogs;
  QuietDesktop quiet;  // what the program opens outside itself stays closed, and nothing sounds
  Desk desk{Desk::Setup{.programFolder = PathOfFile(folder.path()),
                        .settingsFile = folder.filePath("settings.ini"),
                        .dialogs = &dialogs,
                        .pages = &quiet,
                        .spreadsheets = &quiet,
                        .sounds = &quiet,
                        .recovery = keepsGame}};
};

}  // namespace dtb::replay
