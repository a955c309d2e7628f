#include "platform/sqlite/sqlite_save.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/sqlite/rows.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/shape.h"

namespace dtb {
namespace {

// A row that the table of a file would pass over, or put in place of another, is refused.
std::string InsertInto(const TableColumns& table) {
  std::string names;
  std::string marks;
  for (const std::string& column : table.columns) {
    names += (names.empty() ? "" : ", ") + sqlite::Quoted(column);
    marks += marks.empty() ? "?" : ", ?";
  }
  return "INSERT OR ABORT INTO " + sqlite::Quoted(table.table) + " (" + names + ") VALUES (" +
         marks + ")";
}

// What finds a game among the rows of thousands, made by the first save into a file. Nothing but
// time is lost where a file takes no such index.
constexpr std::array kGameIndexes{
    "CREATE INDEX IF NOT EXISTS BattingOfGame ON Batting (GameID)",
    "CREATE INDEX IF NOT EXISTS PitchingOfGame ON Pitching (GameID)",
    "CREATE INDEX IF NOT EXISTS BoxScoresOfGame ON BoxScores (GameID)",
};

void IndexGames(SQLite::Database& database) {
  for (const char* index : kGameIndexes) {
    const int code = database.tryExec(index);
    if (code != SQLITE_OK && code != SQLITE_ERROR) database.check(code);
  }
}

// SQLite names the check that a row failed, and the checks are named after their columns.
std::string Refusal(const SQLite::Exception& fault, const std::string& table,
                    const std::vector<ColumnText>& row) {
  const std::string_view message = fault.what();
  for (const auto& [column, text] : row) {
    if (!message.ends_with(": " + column)) continue;
    return std::string("The column \"")
        .append(column)
        .append("\" of the table \"")
        .append(table)
        .append("\" takes no text but numbers, and \"")
        .append(text)
        .append("\" is none.");
  }
  return "The table \"" + table + "\" refuses a row: " + std::string(message) + ".";
}

}  // namespace

SqliteSave::SqliteSave(const std::filesystem::path& file, std::chrono::milliseconds longestWait,
                       const std::vector<TableColumns>& tables)
    : file_(file), database_(sqlite::Open(file, longestWait)) {
  try {
    RequireWritable();
    RequireAllColumns();
    IndexGames(database_);
    tables_ = Prepared(tables);
  } catch (const SQLite::Exception& fault) {
    sqlite::ThrowFault(fault, file_);
  }
}

void SqliteSave::RequireWritable() {
  if (sqlite3_db_readonly(database_.getHandle(), "main") == 1) {
    throw SQLite::Exception("read-only", SQLITE_READONLY);
  }
  database_.exec("BEGIN IMMEDIATE");
  // Writing what is there already opens the journal, and so finds a folder that cannot be written.
  const int version = database_.execAndGet("PRAGMA user_version");
  database_.exec("PRAGMA user_version = " + std::to_string(version));
}

void SqliteSave::RequireAllColumns() {
  std::string lacking;
  for (const std::string& sentence : sqlite::WhatASaveLacks(database_)) {
    lacking += (lacking.empty() ? "" : "\n") + sentence;
  }
  if (lacking.empty()) return;
  throw ProgramError(error_number::kInvalidCall,
                     sqlite::Named(file_) + " has no place for all of a game:\n\n" + lacking);
}

void SqliteSave::Run(const Statement& query, RowSink& rows) {
  sqlite::GiveRows(database_, query, file_, rows);
}

std::vector<SqliteSave::Table> SqliteSave::Prepared(const std::vector<TableColumns>& tables) const {
  std::vector<Table> prepared;
  prepared.reserve(tables.size());
  for (const TableColumns& columns : tables) {
    prepared.push_back({columns, SQLite::Statement(database_, InsertInto(columns))});
  }
  return prepared;
}

SqliteSave::Table& SqliteSave::TableOf(std::vector<Table>& tables, const std::string& name) {
  const auto found = std::ranges::find_if(
      tables, [&name](const Table& table) { return table.columns.table == name; });
  if (found == tables.end()) throw ProgramError(error_number::kInternal, "No table " + name);
  return *found;
}

void SqliteSave::Append(const std::string& table, const std::vector<ColumnText>& row) {
  Insert(TableOf(tables_, table), row);
}

void SqliteSave::Insert(Table& table, const std::vector<ColumnText>& row) {
  auto& [columns, insert] = table;
  try {
    insert.reset();
    insert.clearBindings();
    for (const auto& [column, text] : row) {
      const auto place = std::ranges::find(columns.columns, column);
      if (place == columns.columns.end()) {
        throw ProgramError(error_number::kInternal, "No column " + column);
      }
      insert.bindNoCopy(static_cast<int>(place - columns.columns.begin()) + 1, text);
    }
    insert.exec();
  } catch (const SQLite::Exception& fault) {
    const int code = fault.getErrorCode();
    if (code == SQLITE_CONSTRAINT || code == SQLITE_MISMATCH || code == SQLITE_TOOBIG) {
      throw RowRefused(error_number::kTypeMismatch, Refusal(fault, columns.table, row));
    }
    sqlite::ThrowFault(fault, file_);
  }
}

// A file may hold what keeps these tables from being made or filled: a table of somebody else's, an
// index of the same name. The game goes into its five tables all the same.
std::string SqliteSave::AppendPlays(const std::vector<TableRow>& rows) {
  try {
    std::string lacking;
    for (const std::string& sentence : sqlite::WhatPlaysLack(database_)) {
      lacking += (lacking.empty() ? "" : "\n") + sentence;
    }
    if (!lacking.empty()) return lacking;
    database_.exec("SAVEPOINT plays");
    std::string refusal;
    try {
      InsertPlays(rows);
    } catch (const RowRefused& refused) {
      refusal = refused.what();
    } catch (const SQLite::Exception& fault) {
      if (fault.getErrorCode() != SQLITE_ERROR) throw;
      refusal = sqlite::Named(file_) + " has no place for them: " + fault.what() + ".";
    }
    database_.exec(refusal.empty() ? "RELEASE plays" : "ROLLBACK TO plays; RELEASE plays");
    return refusal;
  } catch (const SQLite::Exception& fault) {
    sqlite::ThrowFault(fault, file_);
  }
}

void SqliteSave::InsertPlays(const std::vector<TableRow>& rows) {
  database_.exec(sqlite::kPlaySchema);
  std::vector<Table> tables = Prepared(sqlite::PlayTables());
  for (const TableRow& row : rows) Insert(TableOf(tables, row.table), row.cells);
}

void SqliteSave::Commit() {
  try {
    database_.exec("COMMIT");
  } catch (const SQLite::Exception& fault) {
    sqlite::ThrowFault(fault, file_);
  }
}

}  // namespace dtb
