// The whole program at a table of its own, for scripts and tests.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "base/paths.h"
#include "platform/qt/qt_text.h"
#include "platform/quiet_desktop.h"
#include "replay/gestures.h"
#include "replay/program_files.h"
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

// A program folder of its own, with the given database, which is made where it does not stand, or
// else an empty one. A folder that is given stays, and is taken as it stands where it was filled
// before. Throws Refused where it cannot be filled.
class PlayFolder {
 public:
  PlayFolder(const QString& database, const QString& given, const QString& program)
      : given_(given), own_(given.isEmpty() ? std::make_unique<QTemporaryDir>() : nullptr) {
    const QDir shipped(FindProgramFiles(program));
    if (QFile::exists(filePath("DTB.mdb"))) return;
    for (const QString& name : shipped.entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
      // A program's own database and reports may lie beside what came with it.
      if (name.startsWith("DTB") || name == "Game Rpts") continue;
      // The program writes team files of a season beside those that came with it.
      const QDir teams(shipped.filePath(name));
      if (name != "Teams" || !QDir().mkpath(filePath(name))) {
        Lend(shipped.filePath(name), filePath(name));
        continue;
      }
      for (const QString& team : teams.entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
        Lend(teams.filePath(team), filePath(name + '/' + team));
      }
    }
    const QString file = QFileInfo(database).absoluteFilePath();
    if (database.isEmpty()) {
      // Where copies stand the database was lost, and the program offers the newest.
      if (QDir(filePath(kCopiesFolder)).isEmpty()) Make(filePath("DTB.mdb"));
    } else {
      if (!QFile::exists(file)) Make(file);
      if (!Lend(file, filePath("DTB.mdb"))) lent_ = PathOfFile(file);
    }
  }
  ~PlayFolder() {
    std::error_code error;
    if (lent_.empty()) return;
    std::filesystem::copy_file(PathOfFile(filePath("DTB.mdb")), lent_,
                               std::filesystem::copy_options::overwrite_existing, error);
  }
  PlayFolder(const PlayFolder&) = delete;
  PlayFolder& operator=(const PlayFolder&) = delete;

  [[nodiscard]] QString path() const { return own_ ? own_->path() : given_; }
  [[nodiscard]] QString filePath(const QString& name) const { return QDir(path()).filePath(name); }

 private:
  // Puts a link in a place where nothing stands yet, or a copy where the system makes no links.
  // False for a copy.
  static bool Lend(const QString& file, const QString& place) {
    std::error_code error;
    if (std::filesystem::exists(std::filesystem::symlink_status(PathOfFile(place)))) return true;
    std::filesystem::create_symlink(PathOfFile(file), PathOfFile(place), error);
    if (!error) return true;
    std::filesystem::copy(PathOfFile(file), PathOfFile(place),
                          std::filesystem::copy_options::recursive, error);
    if (error) throw Refused(place + " cannot be made: " + QString::fromStdString(error.message()));
    return false;
  }

  void Make(const QString& database) const {
    QFile schema(filePath("schema.sql"));
    try {
      if (!schema.open(QIODevice::ReadOnly)) throw Refused("schema.sql cannot be read");
      SQLite::Database(FromQt(database), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
          .exec(schema.readAll().toStdString());
    } catch (const std::exception& error) {
      throw Refused("the database " + database + " cannot be made: " + error.what());
    }
  }

  QString given_;
  std::unique_ptr<QTemporaryDir> own_;
  std::filesystem::path lent_;  // the database of which a copy lies here; empty: none
};

// A desk whose program folder and settings are made for it and go with it, and so does its database
// unless one is given. With a folder that stays, its game outlives it. `program` is the folder of
// what comes with the program; "": the one that is found.
struct PlayTable {
  explicit PlayTable(const QString& database = {}, const QString& kept = {},
                     const QString& program = {})
      : folder(database, kept, program), keepsGame(!kept.isEmpty()) {}

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
