#include "platform/qt/qt_recovery_store.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <utility>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/whole_file.h"
#include "platform/qt/qt_text.h"

namespace dtb {

QtRecoveryStore::QtRecoveryStore(const QString& file)
    : file_(file), lock_(file + QStringLiteral(".lock")) {
  QDir().mkpath(QFileInfo(file).path());  // not there before the first setting
  // However long a game takes, its program has the file; that of a dead one is free at once.
  lock_.setStaleLockTime(0);
  Lock();
  if (mine()) RemoveHalfWritten();
}

void QtRecoveryStore::Lock() {
  // A program that died while it wrote its lock leaves one that tells nothing. The system itself
  // knows whether somebody still holds it, and then this removes nothing.
  if (!lock_.tryLock(0) && lock_.removeStaleLockFile()) {
    static_cast<void>(lock_.tryLock(0));
  }
}

// A program that died while it wrote leaves a file with six letters behind the name.
void QtRecoveryStore::RemoveHalfWritten() const {
  const QFileInfo file(file_);
  QDir folder = file.dir();
  for (const QString& half :
       folder.entryList({file.fileName() + QStringLiteral(".??????")}, QDir::Files)) {
    folder.remove(half);
  }
}

std::optional<std::string> QtRecoveryStore::Load() {
  // A full disk takes no lock, but a game that was kept can be read all the same.
  return takenByAnother() ? std::nullopt : ReadWholeFile(File());
}

void QtRecoveryStore::Keep(std::string bytes, bool gestureGoesOn) {
  if (!mine() && !takenByAnother()) {
    Lock();
    if (!mine()) return Fail("its folder takes no file, or the disk is full");
  }
  if (!mine()) return;
  if (!writer_.joinable()) {
    writer_ = std::jthread([this](const std::stop_token& stop) { WriteWaiting(stop); });
  }
  {
    std::unique_lock lock(guard_);
    if (!gestureGoesOn) changed_.wait(lock, [this] { return Idle(); });
    waiting_ = std::move(bytes);
  }
  changed_.notify_all();
}

void QtRecoveryStore::WriteWaiting(const std::stop_token& stop) {
  std::unique_lock lock(guard_);
  while (changed_.wait(lock, stop, [this] { return waiting_.has_value(); })) {
    const std::string bytes = std::move(*waiting_);
    waiting_.reset();
    writing_ = true;
    lock.unlock();
    Write(bytes);
    lock.lock();
    writing_ = false;
    changed_.notify_all();
  }
}

void QtRecoveryStore::Wait() {
  std::unique_lock lock(guard_);
  changed_.wait(lock, [this] { return Idle(); });
}

void QtRecoveryStore::Write(const std::string& bytes) {
  try {
    WriteWholeFile(File(), bytes, "game in progress");
    failed_ = false;
  } catch (const ProgramError& fault) {
    Fail(fault.what());
  }
}

void QtRecoveryStore::Fail(const std::string& why) {
  if (!std::exchange(failed_, true) && told_) told_(why);
}

bool QtRecoveryStore::Safe() {
  Wait();
  return mine() && !failed_;
}

QString QtRecoveryStore::FreeName(const QString& title) const {
  const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
  const QString end = title.isEmpty() ? title : QLatin1Char(' ') + title;
  QString name = file_ + QLatin1Char('.') + stamp + end;
  for (int number = 2; QFileInfo::exists(name); ++number) {
    name = file_ + QStringLiteral(".%1-%2").arg(stamp).arg(number) + end;
  }
  return name;
}

std::string QtRecoveryStore::PutAside(const std::string& bytes, const std::string& title) {
  std::string name = FromQt(FreeName(ToQt(title)));
  try {
    WriteWholeFile(PathOf(name), bytes, "game set aside");
    return name;
  } catch (const ProgramError&) {
    return {};
  }
}

std::string QtRecoveryStore::SetAside() {
  Wait();
  const QString aside = FreeName({});
  // Where it cannot be moved, nothing can be written over it either.
  return FromQt(QFile::rename(file_, aside) ? aside : file_);
}

void QtRecoveryStore::Discard() {
  Wait();
  if (!takenByAnother()) QFile::remove(file_);
}

}  // namespace dtb
