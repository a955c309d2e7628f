// Copies of the database's file, made by SQLite's own backup.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

#include "platform/database_copies.h"
#include "platform/sqlite/sqlite_database.h"

namespace SQLite {
class Database;
}

namespace dtb {

// Makes a new database, which `fill` fills, and puts it in place of `file`, whole or not at
// all; a symbolic link stays, and what it points at is replaced. A file that stands there goes on
// beside it as `asideName`, or with a number behind it where the name is taken. Returns its name;
// "" where there was none. Throws ProgramError.
std::string PutNewDatabase(const std::filesystem::path& file, const std::string& asideName,
                           const std::function<void(SQLite::Database&)>& fill);

// Writes what a database holds into a file, whole or not at all; one that stands there is replaced.
// Throws ProgramError.
void CopyDatabase(const std::filesystem::path& from, const std::filesystem::path& to);

class SqliteCopies : public DatabaseCopies {
 public:
  explicit SqliteCopies(const std::filesystem::path& database,
                        std::chrono::milliseconds longestWait = SqliteDatabase::kLongestWait)
      : file_(database),
        folder_(database.parent_path() / kCopiesFolder),
        longestWait_(longestWait) {}

  // From now on they are those of another database, in another folder.
  void MoveTo(std::filesystem::path database, std::filesystem::path folder) {
    file_ = std::move(database);
    folder_ = std::move(folder);
  }

  std::vector<std::string> CopyNames() override;
  std::uintmax_t CopySize(const std::string& name) override;
  std::unique_ptr<Database> OpenCopy(const std::string& name) override;
  std::string FaultOfCopy(const std::string& name) override;
  bool EqualsCopy(const std::string& name) override;
  void MakeCopy(const std::string& name) override;
  void RemoveCopy(const std::string& name) override;
  DatabaseHealth Examine() override;
  void BringBack(const std::string& name) override;
  std::string Renew(const std::optional<std::string>& copy, const std::string& asideName) override;

 private:
  [[nodiscard]] std::filesystem::path PathOfCopy(const std::string& name) const;
  void MakeFolder() const;
  void RequireLost();
  void RemoveUnfinished() const;

  std::filesystem::path file_;
  std::filesystem::path folder_;
  std::chrono::milliseconds longestWait_;
};

}  // namespace dtb
