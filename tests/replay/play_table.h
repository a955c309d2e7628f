// The whole program at a table of its own, for scripts and tests.
#pragma once

#include <QList>
#include <QTemporaryDir>
#include <memory>

#include "windows/desk.h"

namespace dtb::replay {

// Gives the answers in order; a dialog that nobody prepared is cancelled.
struct ScriptedDialogs : FileDialogs {
  std::optional<std::filesystem::path> OpenFile(const OpenFileRequest& request) override;
  QList<std::optional<std::filesystem::path>> answers;
};

// What the program opens outside itself stays closed.
struct NoPages : Pages {
  void Open(const std::string& /*addressOrFile*/) override {}
};

// A desk whose program folder and settings are made for it and go with it.
class PlayTable {
 public:
  PlayTable();

  [[nodiscard]] Desk& desk() { return *desk_; }
  [[nodiscard]] ScriptedDialogs& dialogs() { return dialogs_; }
  [[nodiscard]] QString Folder(const QString& name) const { return folder_.filePath(name); }

 private:
  QTemporaryDir folder_;
  ScriptedDialogs dialogs_;
  NoPages pages_;
  std::unique_ptr<Desk> desk_;
};

}  // namespace dtb::replay
