// One save: rows that are stored all together or not at all.
#pragma once

#include <chrono>
#include <filesystem>

#include "platform/database.h"
#include "platform/sqlite/connection.h"

namespace dtb {

// The connection closes with the object, and what was not committed is gone.
class SqliteSave : public DatabaseSave {
 public:
  SqliteSave(const std::filesystem::path& file, std::chrono::milliseconds longestWait,
             const std::vector<TableColumns>& tables);

  void Run(const Statement& query, RowSink& rows) override;
  void Append(const std::string& table, const std::vector<ColumnText>& row) override;
  std::string AppendPlays(const std::vector<TableRow>& rows) override;
  void Commit() override;

 private:
  struct Table {
    TableColumns columns;
    SQLite::Statement insert;  // takes a text for every column, in their order
  };

  void RequireWritable();
  void RequireAllColumns();
  void Insert(Table& table, const std::vector<ColumnText>& row);
  void InsertPlays(const std::vector<TableRow>& rows);
  [[nodiscard]] static Table& TableOf(std::vector<Table>& tables, const std::string& name);
  [[nodiscard]] std::vector<Table> Prepared(const std::vector<TableColumns>& tables) const;

  std::filesystem::path file_;
  SQLite::Database database_;
  std::vector<Table> tables_;
};

}  // namespace dtb
