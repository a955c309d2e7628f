#include "platform/qt/program_folder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>
#include <array>
#include <utility>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/system.h"
#include "base/whole_file.h"
#include "platform/qt/laid_out.h"
#include "platform/qt/qt_text.h"
#include "platform/sqlite/sqlite_database.h"

namespace dtb {
namespace {

// Where the program's files lie, from the folder of the executable: as the package has it, and
// where all of a program stands in a folder of its own.
constexpr std::array kShared{"../share/kelvane-diamond-table", "shipped"};
constexpr const char* kRecord = ".laid-out";
constexpr const char* kNoSum = "-";  // of a file that is never read

// "" for a file that is not there or cannot be read.
QByteArray Checksum(const QString& path) {
  QFile file(path);
  QCryptographicHash hash(QCryptographicHash::Sha256);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || !hash.addData(&file)) {
    return {};
  }
  return hash.result().toHex();
}

// Throws ProgramError.
void Copy(const QString& from, const QString& to) {
  const auto bytes = ReadWholeFile(PathOf(FromQt(from)));
  if (!bytes) {
    throw ProgramError(error_number::kFileNotFound,
                       "The file \"" + FromQt(from) + "\" cannot be read.");
  }
  QDir().mkpath(QFileInfo(to).path());
  WriteWholeFile(PathOf(FromQt(to)), *bytes);
}

// One look at the person's folder.
class Filling {
 public:
  Filling(const QDir& shared, const QDir& personal, QString emptyDatabase)
      : shared_(shared),
        personal_(personal),
        emptyDatabase_(std::move(emptyDatabase)),
        recordFile_(personal.filePath(QLatin1String(kRecord))),
        record_(ReadLaidOut(recordFile_)),
        before_(record_) {}

  void Fill() {
    for (const char* folder : {"Teams", "Ballparks", "Logos", "Charts", "Game Rpts"}) {
      personal_.mkpath(QLatin1String(folder));
    }
    for (QDirIterator file(shared_.path(), QDir::Files, QDirIterator::Subdirectories);
         file.hasNext();) {
      const QString name = shared_.relativeFilePath(file.next());
      if (name != QLatin1String(kDatabaseFile)) Examine(name);
    }
    try {
      // First of all, what is about to be put: so a start that is broken off leaves nothing that
      // the next one would take for the person's own.
      if (!wanted_.isEmpty()) WriteLaidOut(recordFile_, record_);
      for (const QString& name : wanted_) Put(name);
      if (failures_.isEmpty()) PutDatabase();
      if (record_ != before_) WriteLaidOut(recordFile_, record_);
    } catch (const ProgramError& fault) {
      Fail(recordFile_, fault);
    }
  }

  [[nodiscard]] const QStringList& failures() const { return failures_; }
  [[nodiscard]] const QString& why() const { return why_; }
  [[nodiscard]] QString Complaint() const {
    constexpr int kMostNamed = 5;
    QString files = failures_.mid(0, kMostNamed).join(QLatin1Char('\n'));
    if (const auto more = failures_.size() - kMostNamed; more > 0) {
      files += QStringLiteral("\nand %1 more").arg(more);
    }
    return QStringLiteral(
               "These files could not be copied to your folder; "
               "the next start will try again:\n%1\n\n%2")
        .arg(files, why_);
  }
  // A database is, or was, here.
  [[nodiscard]] bool WasFilled() const {
    return StampOfFile(personal_.filePath(QLatin1String(kDatabaseFile))).size >= 0 ||
           record_.contains(QLatin1String(kDatabaseFile)) || CopiesStand();
  }

 private:
  void Fail(const QString& file, const ProgramError& fault) {
    failures_ << file;
    if (why_.isEmpty()) why_ = ToQt(fault.what());
  }

  [[nodiscard]] bool CopiesStand() const {
    const QDir copies(personal_.filePath(QLatin1String(kCopiesFolder)));
    return !copies.entryList({QStringLiteral("*.mdb")}, QDir::Files).isEmpty();
  }

  // Decides about a file, and reads what is another than at the last start alone.
  void Examine(const QString& name) {
    const FileStamp source = StampOfFile(shared_.filePath(name));
    const FileStamp target = StampOfFile(personal_.filePath(name));
    LaidOutFile known = record_.value(name);
    if (target.size < 0) {
      if (!known.sum.isEmpty()) return;  // the person deleted it
      return Want(name, Checksum(shared_.filePath(name)));
    }
    const bool settled = known.putting.isEmpty() && target == known.target;
    if (settled && (known.own || source == known.source)) return;
    const QByteArray here = Checksum(personal_.filePath(name));
    const QByteArray shipped = Checksum(shared_.filePath(name));
    const bool ours =
        !here.isEmpty() && (here == known.sum || here == known.putting || here == shipped);
    if (ours && here != shipped) return Want(name, shipped);
    record_[name] = {known.sum.isEmpty() || ours ? shipped : known.sum, {}, source, target, !ours};
  }

  void Want(const QString& name, const QByteArray& sum) {
    record_[name].putting = sum;
    wanted_ << name;
  }

  void Put(const QString& name) {
    const QString source = shared_.filePath(name);
    const QString target = personal_.filePath(name);
    try {
      Copy(source, target);
      record_[name] = {record_[name].putting, {}, StampOfFile(source), StampOfFile(target), false};
    } catch (const ProgramError& fault) {
      Fail(target, fault);
    }
  }

  void PutDatabase() {
    const QString name = QLatin1String(kDatabaseFile);
    if (StampOfFile(emptyDatabase_).size < 0) return;
    if (!WasFilled()) Copy(emptyDatabase_, personal_.filePath(name));
    if (record_[name].sum.isEmpty()) record_[name].sum = kNoSum;
  }

  QDir shared_;
  QDir personal_;
  QString emptyDatabase_;
  QString recordFile_;
  LaidOut record_;
  LaidOut before_;
  QStringList wanted_;
  QStringList failures_;
  QString why_;
};

}  // namespace

QString SharedFolder(const QString& executableFolder) {
  QString folder;
  for (const char* place : kShared) {
    folder = QDir::cleanPath(QDir(executableFolder).filePath(QLatin1String(place)));
    if (QFileInfo(folder).isDir()) break;
  }
  return folder;
}

PersonalFolder FindPersonalFolder(const QString& executableFolder) {
  constexpr const char* kSettings = "/DTB_v102.ini";
  const QString beside = executableFolder + QStringLiteral("/table");
  if (QFileInfo(beside).isDir()) return {beside, beside + QLatin1String(kSettings)};
  const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                      QStringLiteral("/kelvane-diamond-table");
  return {own, system::kSettingsBesideData ? own + QLatin1String(kSettings) : QString()};
}

ProgramFolder FindProgramFolder(const QString& executableFolder, const QString& personalFolder) {
  const QDir shared(SharedFolder(executableFolder));
  const bool besides = QFileInfo::exists(executableFolder + QStringLiteral("/Ballparks"));
  if (besides || !shared.exists()) return {executableFolder, {}};
  Filling filling(shared, QDir(personalFolder), shared.filePath(QLatin1String(kDatabaseFile)));
  filling.Fill();
  if (filling.failures().isEmpty()) return {personalFolder, {}};
  if (!filling.WasFilled()) {
    return {shared.path(), QStringLiteral("Your folder \"%1\" could not be filled.\n%2\n\n"
                                          "The program runs from its own folder meanwhile, "
                                          "where no game can be saved. The next start tries again.")
                               .arg(personalFolder, filling.why())};
  }
  return {personalFolder, filling.Complaint()};
}

QString FillFolder(const QString& shipped, const QString& folder, const QString& emptyDatabase) {
  QDir().mkpath(folder);
  Filling filling{QDir(QDir(shipped).absolutePath()), QDir(QDir(folder).absolutePath()),
                  emptyDatabase};
  filling.Fill();
  return filling.failures().isEmpty() ? QString() : filling.Complaint();
}

}  // namespace dtb
