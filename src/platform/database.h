// The statistics database as the logic knows it.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/program_error.h"

namespace dtb {

// The file cannot be used at all: missing, empty, of a foreign format, damaged, locked, read-only.
class DatabaseOutOfReach : public ProgramError {
 public:
  using ProgramError::ProgramError;
};

// SQLite takes no such row, because a text is no number where the column holds numbers.
class RowRefused : public ProgramError {
 public:
  using ProgramError::ProgramError;
};

// A statement and the texts bound to its marks "?1", "?2", ... in that order. Marks are the only
// way for a person's text into a statement. A query whose stop is asked for fails soon.
struct Statement {
  std::string text;
  std::vector<std::string> bound = {};
  std::stop_token stop = {};
};

struct ColumnText {
  std::string column;
  std::string text;
};

struct TableColumns {
  std::string table;
  std::vector<std::string> columns;
};

// A row as texts; a column that is not named stays Null.
struct TableRow {
  std::string table;
  std::vector<ColumnText> cells;
};

// A value as the database has it: Null, a whole number, another number or a text, which is good
// until whoever gave it goes on.
using DatabaseValue = std::variant<std::monostate, std::int64_t, double, std::string_view>;

// Takes the result of a query.
class RowSink {
 public:
  virtual ~RowSink() = default;
  // The names or aliases of the fields: once, before the first row.
  virtual void TakeFields(std::vector<std::string> names) = 0;
  // One record, with as many values as there are fields.
  virtual void TakeRow(std::span<const DatabaseValue> row) = 0;
};

// Whoever answers queries.
class DatabaseReader {
 public:
  virtual ~DatabaseReader() = default;

  // Gives the result of a query, row by row, on the calling thread. Throws ProgramError, perhaps
  // after some rows.
  virtual void Run(const Statement& query, RowSink& rows) = 0;
};

// One save in progress. Until Commit nothing of it can be read by anyone else: a crash, or the end
// of this object's life before Commit, leaves the database as it was. Nobody else writes meanwhile,
// so what its queries find stays so.
class DatabaseSave : public DatabaseReader {
 public:
  // Adds a row. SQLite turns each text into its column's type; a column that is not named stays
  // Null. A row that is refused throws RowRefused, and the storage's failure throws ProgramError;
  // either way the save is to be given up, without Commit.
  virtual void Append(const std::string& table, const std::vector<ColumnText>& row) = 0;

  // Adds rows to the tables of the plays, all of them or none; those of the tables that the file
  // has not are made first. Returns why none was added, in sentences: a table of such a name is
  // somebody else's, or refuses a row. "": they were added. The storage's failure throws as above.
  [[nodiscard]] virtual std::string AppendPlays(const std::vector<TableRow>& rows) = 0;

  // On return all rows are stored and survive a power cut. Throws ProgramError, and then none is.
  virtual void Commit() = 0;
};

// A change in progress: looking, counting and changing are one transaction, as a save is one.
class DatabaseChange : public DatabaseReader {
 public:
  // Runs a changing statement. A table that is missing counts as an empty one. Throws ProgramError.
  virtual void Execute(const Statement& statement) = 0;
  // On return the change survives a power cut. Throws ProgramError, and then nothing has changed.
  virtual void Commit() = 0;
};

// A file of five tables, and of four more of what comes of the plays, which may be missing: they
// read as empty ones then, and so does one of such a name that is somebody else's, in which nothing
// is changed either. No connection to it stays open between two calls, apart from a save or
// change in progress. Nothing here creates the file or replaces it. All errors are ProgramErrors
// that say in plain words what is wrong, with the file's path: DatabaseOutOfReach where no other
// statement would fare better. Several threads may run queries at a time, each into a sink of its
// own, also while the thread of the windows saves or changes something; all else belongs to that.
//
// A table that lacks a column, or the whole of it, reads as if it stood there without values, and
// columns of another type read in their own: what is there can be shown. A save needs them all.
//
// Column names are matched without regard to case. The operator LIKE ignores the case of
// letters of all scripts; "%" stands for any text and "_" for one character. The order NAMES
// (in "COLLATE NAMES") is the one of CompareNames.
class Database : public DatabaseReader {
 public:
  // What its tables lack, a sentence for each table or column: "The table "Batting" lacks the
  // column "SB"." Nothing for a database as it should be.
  [[nodiscard]] virtual std::vector<std::string> WhatItLacks() = 0;

  // Keeps other programs from writing until the change ends.
  [[nodiscard]] virtual std::unique_ptr<DatabaseChange> BeginChange() = 0;

  // Makes sure that the database can be written and has these tables with these columns, and keeps
  // other programs from writing until the save ends.
  [[nodiscard]] virtual std::unique_ptr<DatabaseSave> BeginSave(
      const std::vector<TableColumns>& tables) = 0;
};

}  // namespace dtb
