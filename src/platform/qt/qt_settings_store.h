// The player's lasting choices, in one INI file of the user.
#pragma once

#include <QString>

#include "platform/platform.h"

namespace dtb {

class QtSettingsStore : public SettingsStore {
 public:
  // Uses the file DTB_v102.ini in the user's folder of configuration files unless one is named. A
  // file that cannot be understood is kept beside under a name of its own, and a new one begins.
  explicit QtSettingsStore(QString file = {});

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& missing) override;
  void Write(const std::string& section, const std::string& key, const std::string& value) override;

  // The path of another file of this program in the same folder.
  [[nodiscard]] QString FileBeside(const char* name) const;

  // Where a damaged file was kept; empty if there was none.
  [[nodiscard]] const QString& damagedFile() const { return damagedFile_; }

 private:
  // All settings that are stored, with another one. Throws ProgramError.
  void Store(const QString& key, const QString& value) const;

  QString file_;
  QString damagedFile_;
};

}  // namespace dtb
