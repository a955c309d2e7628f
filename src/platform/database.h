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

// One save in progress. Until Commit nothing of it can be read by anyone: a crash, or the end of
// this object's life before Commit, leaves the database as it was.
class DatabaseSave {
 public:
  virtual ~DatabaseSave() = default;

  // Adds a row. The engine turns each text into its column's type; a column that is not named stays
  // Null. A row the engine refuses throws RowRefused: the rows before it are kept by Commit.
  // Throws ProgramError when the storage fails; then Commit will fail as well.
  virtual void Append(const std::string& table, const std::vector<ColumnText>& row) = 0;

  // On return all rows are stored and survive a power cut. Throws ProgramError, and then none is.
  virtual void Commit() = 0;
};

// A file of five tables. No connection to it stays open between two calls, apart from a save in
// progress. Nothing here creates the file or replaces it. All errors are ProgramErrors that say in
// plain words what is wrong, with the file's path: DatabaseOutOfReach where no other statement
// would fare better.
//
// Column names are matched without regard to case. The operator LIKE ignores the case of
// letters of all scripts; "%" stands for any text and "_" for one character. The order NAMES
// (in "COLLATE NAMES") is the one of CompareNames.
class Database {
 public:
  virtual ~Database() = default;

  // Replaces the contents of the grid with the result: row 0 has the names or aliases of the fields
  // from column 1 on, each record is a row from row 1 on, column 0 is empty. Null reads "", a
  // number is plain decimal text of at most 15 digits: 1 and 6.33, never 1.0. On an error the grid
  // stays as it was. Several threads may run queries at a time, each into a grid of its own.
  virtual void Run(const Statement& query, StatGrid& result) = 0;

  // Runs deleting statements one after the other; one that fails does not keep the next from
  // running. Returns what went wrong, each fault once; nothing if all was well.
  [[nodiscard]] virtual std::vector<std::string> Delete(
      const std::vector<Statement>& statements) = 0;

  // Runs changing statements in one transaction: all of them, surviving a power cut, or none.
  virtual void Change(const std::vector<Statement>& statements) = 0;

  // Makes sure that the database can be written and has these tables with these columns, and keeps
  // other programs from writing until the save ends.
  [[nodiscard]] virtual std::unique_ptr<DatabaseSave> BeginSave(
      const std::vector<TableColumns>& tables) = 0;
};

}  // namespace dtb
