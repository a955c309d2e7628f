// The statistics database as the logic knows it.
#pragma once

#include <memory>
#include <stop_token>
#include <string>
#include <vector>

#include "shell/program_error.h"

namespace dtb {

class StatGrid;

// The file cannot be used at all: missing, empty, of a foreign format, damaged, locked, read-only.
class DatabaseOutOfReach : public ProgramError {
 public:
  using ProgramError::ProgramError;
};

// The engine takes no such row, because a text is no number where the column holds numbers.
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

// Whoever answers queries.
class DatabaseReader {
 public:
  virtual ~DatabaseReader() = default;

  // Replaces the contents of the grid with the result: row 0 has the names or aliases of the fields
  // from column 1 on, each record is a row from row 1 on, column 0 is empty. Null reads "", a
  // number is plain decimal text of at most 15 digits: 1 and 6.33, never 1.0. On an error the grid
  // stays as it was.
  virtual void Run(const Statement& query, StatGrid& result) = 0;
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

// A file of five tables. No connection to it stays open between two calls, apart from a save or
// change in progress. Nothing here creates the file or replaces it. All errors are ProgramErrors
// that say in plain words what is wrong, with the file's path: DatabaseOutOfReach where no other
// statement would fare better. Several threads may run queries at a time, each into a grid of its
// own.
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
