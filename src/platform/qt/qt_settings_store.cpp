#include "platform/qt/qt_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <utility>

#include "platform/qt/qt_text.h"
#include "shell/program_error.h"

namespace dtb {
namespace {

QString KeyOf(const std::string& section, const std::string& key) {
  return ToQt(section) + QLatin1Char('/') + ToQt(key);
}

// A name beside the file under which nothing stands yet.
QString FreeNameBeside(const QString& file) {
  QString name = file + QStringLiteral(".damaged");
  for (int number = 2; QFile::exists(name); ++number) {
    name = file + QStringLiteral(".damaged%1").arg(number);
  }
  return name;
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
  return settings.contains(name) ? FromQt(settings.value(name).toString()) : missing;
}

void QtSettingsStore::Write(const std::string& section, const std::string& key,
                            const std::string& value) {
  QSettings settings(file_, QSettings::IniFormat);
  settings.setValue(KeyOf(section, key), ToQt(value));
  settings.sync();
  if (settings.status() != QSettings::NoError) {
    throw ProgramError(error_number::kPathOrFileAccess,
                       "The setting could not be stored in the file \"" + FromQt(file_) +
                           "\". It holds until the program ends.");
  }
}

}  // namespace dtb
