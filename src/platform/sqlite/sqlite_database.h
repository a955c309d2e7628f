// The statistics database in a file of SQLite.
#pragma once

#include <chrono>
#include <filesystem>
#include <utility>

#include "platform/database.h"

namespace dtb {

class SqliteDatabase : public Database {
 public:
  // A file that another program locks is waited for; the saves of a second copy take far less.
  static constexpr std::chrono::milliseconds kLongestWait{2000};

  explicit SqliteDatabase(std::filesystem::path file,
                          std::chrono::milliseconds longestWait = kLongestWait)
      : file_(std::move(file)), longestWait_(longestWait) {}

  // From now on it is another file. No thread may be using it meanwhile: whoever lets one read ends
  // it before the person can choose another season.
  void MoveTo(std::filesystem::path file) { file_ = std::move(file); }

  void Run(const Statement& query, RowSink& rows) override;
  std::vector<std::string> WhatItLacks() override;
  std::unique_ptr<DatabaseChange> BeginChange() override;
  std::unique_ptr<DatabaseSave> BeginSave(const std::vector<TableColumns>& tables) override;

 private:
  std::filesystem::path file_;
  std::chrono::milliseconds longestWait_;
};

// The name of the database's file in the program's folder.
inline constexpr const char* kDatabaseFile = "DTB.mdb";
// The folder of its copies, beside it.
inline constexpr const char* kCopiesFolder = "Backups";

}  // namespace dtb
