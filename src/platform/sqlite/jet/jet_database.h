// Statistics databases of the Jet format, taken over into ours.
#pragma once

#include <filesystem>
#include <utility>

#include "platform/old_database.h"

namespace dtb {

class JetDatabase : public OldDatabase {
 public:
  explicit JetDatabase(std::filesystem::path file) : file_(std::move(file)) {}

  // From now on it is about another place.
  void MoveTo(std::filesystem::path file) { file_ = std::move(file); }

  bool StandsInPlace() override;
  OldContents Contents() override;
  std::string TakeOver(const std::string& asideName) override;

 private:
  std::filesystem::path file_;
};

// Makes a new database of all that an old file holds, where no file stands. Throws ProgramError, in
// whole sentences; then there is no new file. The old one is never changed.
OldContents ImportJet(const std::filesystem::path& old, const std::filesystem::path& made);

}  // namespace dtb
