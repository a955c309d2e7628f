#include "platform/qt/qt_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QMap>
#include <QSettings>
#include <QStandardPaths>
#include <cerrno>
#include <chrono>
#include <utility>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/whole_file.h"
#include "platform/qt/qt_text.h"

namespace dtb {
namespace {

constexpr const char* kKind = "settings file";
constexpr int kLongestWait = 2000;  // milliseconds, for another board that stores a setting

QString KeyOf(const std::string& section, const std::string& key) {
  return ToQt(section) + QLatin1Char('/') + ToQt(key);
}

// A text that was typed into the file without quotes is a list to QSettings if it has commas.
QString TextOfValue(const QVariant& value) { return value.toStringList().join(QLatin1Char(',')); }

// A name beside the file under which nothing stands yet.
QString FreeNameBeside(const QString& file) {
  QString name = file + QStringLiteral(".damaged");
  for (int number = 2; QFile::exists(name); ++number) {
    name = file + QStringLiteral(".damaged%1").arg(number);
  }
  return name;
}

// QSettings reads a file again when its size or its time, in milliseconds, is another one.
void LookNewer(const std::filesystem::path& file, const std::filesystem::path& older) {
  std::error_code fault;
  const auto before = std::filesystem::last_write_time(older, fault);
  if (fault) return;
  const auto least = before + std::chrono::milliseconds(1);
  if (std::filesystem::last_write_time(file, fault) >= least) return;
  std::filesystem::last_write_time(file, least, fault);
}

}  // namespace

QtSettingsStore::QtSettingsStore(QString file) : file_(std::move(file)) {
  if (file_.isEmpty()) {
    file_ = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
            QStringLiteral("/DTB_v102.ini");
  }
  {
    const QSettings settings(file_, QSettings::IniFormat);
    static_cast<void>(settings.allKeys());  // each section is read only when somebody asks for it
    if (settings.status() != QSettings::FormatError) return;
  }
  const QString kept = FreeNameBeside(file_);
  if (QFile::rename(file_, kept)) damagedFile_ = kept;
}

QString QtSettingsStore::FileBeside(const char* name) const {
  return QFileInfo(file_).dir().filePath(QLatin1String(name));
}

std::string QtSettingsStore::Read(const std::string& section, const std::string& key,
                                  const std::string& missing) {
  const QSettings settings(file_, QSettings::IniFormat);
  const QString name = KeyOf(section, key);
  return settings.contains(name) ? FromQt(TextOfValue(settings.value(name))) : missing;
}

void QtSettingsStore::Write(const std::string& section, const std::string& key,
                            const std::string& value) {
  QLockFile lock(file_ + QStringLiteral(".lock"));
  lock.setStaleLockTime(0);
  lock.tryLock(kLongestWait);  // where no lock can be made, the write below tells why
  try {
    Store(KeyOf(section, key), ToQt(value));
  } catch (const ProgramError& fault) {
    throw ProgramError(fault.number(),
                       std::string(fault.what()) + " The setting holds until the program ends.");
  }
}

// QSettings knows the form of the file, but misses that the disk is full. So it writes a draft, and
// what became of that goes the way of all files, once it reads as it should.
void QtSettingsStore::Store(const QString& key, const QString& value) const {
  const std::filesystem::path place = PathOf(FromQt(file_));
  const auto all = [](const QSettings& settings) {
    QMap<QString, QString> values;
    for (const QString& name : settings.allKeys()) {
      // QSettings reads a line without a name, but does not write it.
      if (!name.isEmpty()) values.insert(name, TextOfValue(settings.value(name)));
    }
    return values;
  };
  QMap<QString, QString> wanted = all(QSettings(file_, QSettings::IniFormat));
  wanted.insert(key, value);
  QDir().mkpath(QFileInfo(file_).path());  // not there before the first setting
  const dtb::FileBeside draft(place, kKind);
  {
    QSettings settings(ToQt(TextOf(draft.path())), QSettings::IniFormat);
    for (auto entry = wanted.cbegin(); entry != wanted.cend(); ++entry) {
      settings.setValue(entry.key(), entry.value());
    }
    wanted = all(settings);  // in a file that was edited, names may need mending ("a//b")
  }
  dtb::FileBeside whole(place, kKind);
  whole.Write(ReadWholeFile(draft.path()).value_or(""));
  if (all(QSettings(ToQt(TextOf(whole.path())), QSettings::IniFormat)) != wanted) {
    ThrowWriteFault(kKind, place, ENOSPC);
  }
  LookNewer(whole.path(), place);
  whole.MoveIntoPlace();
}

}  // namespace dtb
