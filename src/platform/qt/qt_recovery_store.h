// The game in progress in a file beside the settings.
#pragma once

#include <QLockFile>
#include <QString>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>

#include "base/paths.h"
#include "platform/platform.h"
#include "platform/qt/qt_text.h"

namespace dtb {

// One program at a time has the file; a second one with the same file keeps nothing. A thread of
// its own writes; all operations belong to the thread of the windows.
class QtRecoveryStore : public RecoveryStore {
 public:
  explicit QtRecoveryStore(const QString& file);
  // Waits until what was given last is safe.
  ~QtRecoveryStore() override = default;
  QtRecoveryStore(const QtRecoveryStore&) = delete;
  QtRecoveryStore& operator=(const QtRecoveryStore&) = delete;

  // This program has the file.
  [[nodiscard]] bool mine() const { return lock_.isLocked(); }
  // Another program that runs has it.
  [[nodiscard]] bool takenByAnother() const {
    return !mine() && lock_.error() == QLockFile::LockFailedError;
  }

  // Hears why the game is not kept, once until it is kept again; in the thread that writes, or
  // within Keep. Set before the first Keep.
  void OnFailure(std::function<void(const std::string& why)> told) { told_ = std::move(told); }

  std::optional<std::string> Load() override;
  void Keep(std::string bytes, bool gestureGoesOn) override;
  bool Safe() override;
  std::string SetAside() override;
  std::string PutAside(const std::string& bytes, const std::string& title) override;
  std::filesystem::path File() override { return PathOf(FromQt(file_)); }

  // Returns when what was given last is safe.
  void Wait();

  // The program ends as the person wants it: nothing stays.
  void Discard();

 private:
  void Lock();
  void RemoveHalfWritten() const;
  // A file beside the game's whose name is free; it ends with the title.
  [[nodiscard]] QString FreeName(const QString& title) const;
  void Write(const std::string& bytes);
  void Fail(const std::string& why);
  [[nodiscard]] bool Idle() const { return !waiting_ && !writing_; }
  // The thread that writes: whatever waits, until a stop is asked for and nothing waits.
  void WriteWaiting(const std::stop_token& stop);

  QString file_;
  QLockFile lock_;
  std::function<void(const std::string&)> told_;
  bool failed_ = false;  // changed by the writer alone, or while it is idle
  std::mutex guard_;
  std::condition_variable_any changed_;
  std::optional<std::string> waiting_;  // to be written
  bool writing_ = false;
  std::jthread writer_;  // from the first Keep on; the last member, so that the others outlive it
};

}  // namespace dtb
