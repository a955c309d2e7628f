// The statistics database in a file of SQLite.
#pragma once

#include <filesystem>
#include <utility>

#include "platform/database.h"

namespace dtb {

class SqliteDatabase : public Database {
 public:
  explicit SqliteDatabase(std::filesystem::path file) : file_(std::move(file)) {}

  void Run(const Statement& query, StatGrid& result) override;
  std::vector<std::string> Delete(const std::vector<Statement>& statements) override;
  std::unique_ptr<DatabaseSave> BeginSave(const std::vector<TableColumns>& tables) override;

 private:
  std::filesystem::path file_;
};

// The name of the database's file in the program's folder.
inline constexpr const char* kDatabaseFile = "DTB.mdb";

}  // namespace dtb
