#include "platform/qt/program_folder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QSaveFile>

#include "platform/sqlite/sqlite_database.h"

namespace dtb {
namespace {

constexpr const char* kShared = "../share/kelvane-diamond-table";
constexpr const char* kRecord = ".laid-out";  // "CHECKSUM  NAME" of each file as it was put there

// "" for a file that is not there or cannot be read.
QByteArray Checksum(const QString& path) {
  QFile file(path);
  QCryptographicHash hash(QCryptographicHash::Sha256);
  if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) return {};
  return hash.result().toHex();
}

QHash<QString, QByteArray> ReadRecord(const QString& path) {
  QHash<QString, QByteArray> record;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return record;
  for (const QByteArray& line : file.readAll().split('\n')) {
    const qsizetype gap = line.indexOf("  ");
    if (gap > 0) record.insert(QString::fromUtf8(line.mid(gap + 2)), line.left(gap));
  }
  return record;
}

// Written beside and moved into place, so that no half file is ever left.
bool Write(const QString& path, const QByteArray& bytes) {
  QDir().mkpath(QFileInfo(path).path());
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

bool Copy(const QString& from, const QString& to) {
  QFile file(from);
  return file.open(QIODevice::ReadOnly) && Write(to, file.readAll());
}

// Where copies of it stand the database was lost, and the program offers the newest of them.
bool IsLostDatabase(const QDir& personal, const QString& name) {
  const QDir copies(personal.filePath(QLatin1String(kCopiesFolder)));
  return name == QLatin1String(kDatabaseFile) &&
         (QFileInfo(personal.filePath(name)).isSymLink() ||
          !copies.entryList({QStringLiteral("*.mdb")}, QDir::Files).isEmpty());
}

QStringList Fill(const QDir& shared, const QDir& personal) {
  QStringList failures;
  const QString recordFile = personal.filePath(QLatin1String(kRecord));
  QHash<QString, QByteArray> record = ReadRecord(recordFile);
  const QHash<QString, QByteArray> before = record;
  for (QDirIterator file(shared.path(), QDir::Files, QDirIterator::Subdirectories);
       file.hasNext();) {
    const QString source = file.next();
    const QString name = shared.relativeFilePath(source);
    const QString target = personal.filePath(name);
    const QByteArray shipped = Checksum(source);
    const bool here = QFileInfo::exists(target);
    if (!here && IsLostDatabase(personal, name)) continue;
    const bool untouched = here ? Checksum(target) == record.value(name) : !record.contains(name);
    if (!untouched || (here && shipped == record.value(name))) continue;
    if (Copy(source, target)) {
      record.insert(name, shipped);
    } else {
      failures << target;
    }
  }
  if (record == before) return failures;
  QByteArray lines;
  for (auto entry = record.cbegin(); entry != record.cend(); ++entry) {
    lines += entry.value() + "  " + entry.key().toUtf8() + '\n';
  }
  if (!Write(recordFile, lines)) failures << recordFile;
  return failures;
}

}  // namespace

ProgramFolder FindProgramFolder(const QString& executableFolder, const QString& personalFolder) {
  const QDir shared(QDir(executableFolder).filePath(QLatin1String(kShared)));
  const bool besides = QFileInfo::exists(executableFolder + QStringLiteral("/Ballparks"));
  if (besides || !shared.exists()) return {executableFolder, {}};
  for (const char* folder : {"Teams", "Ballparks", "Logos", "Charts", "Game Rpts"}) {
    QDir().mkpath(personalFolder + QLatin1Char('/') + QLatin1String(folder));
  }
  return {personalFolder, Fill(QDir(QDir::cleanPath(shared.path())), QDir(personalFolder))};
}

}  // namespace dtb
