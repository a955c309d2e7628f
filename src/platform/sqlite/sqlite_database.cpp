#include "platform/sqlite/sqlite_database.h"

#include "platform/sqlite/connection.h"
#include "platform/sqlite/rows.h"
#include "platform/sqlite/shape.h"
#include "platform/sqlite/sqlite_save.h"

namespace dtb {
namespace {

using sqlite::Told;

void RunBound(SQLite::Database& database, const Statement& statement) {
  SQLite::Statement bound(database, statement.text);
  for (std::size_t i = 0; i < statement.bound.size(); ++i) {
    bound.bindNoCopy(static_cast<int>(i) + 1, statement.bound[i]);
  }
  bound.exec();
}

// The connection closes with the object, and what was not committed is gone.
class SqliteChange : public DatabaseChange {
 public:
  SqliteChange(std::filesystem::path file, std::chrono::milliseconds longestWait)
      : file_(std::move(file)), database_(sqlite::Open(file_, longestWait)) {
    // First of all nobody else may write: a save of another board may make tables.
    Told(file_, [this] {
      database_.exec("BEGIN IMMEDIATE");
      sqlite::StandInForMissing(database_);
    });
  }

  void Run(const Statement& query, RowSink& rows) override {
    sqlite::GiveRows(database_, query, file_, rows);
  }
  void Execute(const Statement& statement) override {
    Told(file_, [&] { RunBound(database_, statement); });
  }
  void Commit() override {
    Told(file_, [this] { database_.exec("COMMIT"); });
  }

 private:
  std::filesystem::path file_;
  SQLite::Database database_;
};

}  // namespace

void SqliteDatabase::Run(const Statement& query, RowSink& rows) {
  SQLite::Database database = sqlite::Open(file_, longestWait_);
  Told(file_, [&] { sqlite::StandInForLacking(database, query.text); });
  sqlite::GiveRows(database, query, file_, rows);
}

std::vector<std::string> SqliteDatabase::WhatItLacks() {
  const SQLite::Database database = sqlite::Open(file_, longestWait_);
  return Told(file_, [&] { return sqlite::WhatItLacks(database); });
}

std::unique_ptr<DatabaseChange> SqliteDatabase::BeginChange() {
  return std::make_unique<SqliteChange>(file_, longestWait_);
}

std::unique_ptr<DatabaseSave> SqliteDatabase::BeginSave(const std::vector<TableColumns>& tables) {
  return std::make_unique<SqliteSave>(file_, longestWait_, tables);
}

}  // namespace dtb
