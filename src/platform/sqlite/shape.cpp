#include "platform/sqlite/shape.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/schema.h"

namespace dtb::sqlite {
namespace {

// What a column does with a value, after SQLite's rules for its declared type.
enum class Kind { Text, Number, Any };

struct Column {
  std::string name;
  Kind kind = Kind::Any;
};

struct Table {
  std::string name;
  std::vector<Column> columns = {};  // none: there is no such table
  bool inOrderOfRows = true;         // its rows have numbers to be sorted by
};

constexpr std::array kTables{"Batting", "Pitching", "BoxScores", "WinLoss", "Matchups"};
constexpr std::array kPlayTables{"Games", "Plays", "Runs", "Decisions"};

std::string Upper(std::string text) {
  std::ranges::transform(text, text.begin(), [](char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  });
  return text;
}

Kind KindOf(const std::string& declaredType) {
  const std::string type = Upper(declaredType);
  const auto has = [&type](std::string_view part) { return type.find(part) != std::string::npos; };
  if (has("INT")) return Kind::Number;
  if (has("CHAR") || has("CLOB") || has("TEXT")) return Kind::Text;
  return type.empty() || has("BLOB") ? Kind::Any : Kind::Number;
}

Table TableIn(const SQLite::Database& database, const std::string& name) {
  Table table{name};
  SQLite::Statement columns(database, "PRAGMA main.table_info(" + Quoted(name) + ")");
  while (columns.executeStep()) {
    table.columns.push_back(
        {columns.getColumn(1).getString(), KindOf(columns.getColumn(2).getString())});
  }
  if (table.columns.empty()) return table;
  // A view, or a table without numbers of its rows, takes this for a fault.
  sqlite3_stmt* statement = nullptr;
  const std::string rows = "SELECT rowid FROM main." + Quoted(name);
  table.inOrderOfRows =
      sqlite3_prepare_v2(database.getHandle(), rows.c_str(), -1, &statement, nullptr) == SQLITE_OK;
  sqlite3_finalize(statement);
  return table;
}

// The tables that a schema makes.
std::vector<Table> TablesOf(const char* schema, std::span<const char* const> names) {
  SQLite::Database model(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  model.exec(schema);
  std::vector<Table> tables;
  for (const char* name : names) tables.push_back(TableIn(model, name));
  return tables;
}

const std::vector<Table>& WantedTables() {
  static const std::vector<Table> wanted = TablesOf(kSchema, kTables);
  return wanted;
}

const std::vector<Table>& WantedPlayTables() {
  static const std::vector<Table> wanted = TablesOf(kPlaySchema, kPlayTables);
  return wanted;
}

const Column* Find(const Table& table, const std::string& column) {
  const auto found = std::ranges::find(table.columns, Upper(column),
                                       [](const Column& one) { return Upper(one.name); });
  return found == table.columns.end() ? nullptr : &*found;
}

bool Differs(const Table& wanted, const Table& there) {
  if (there.columns.size() < wanted.columns.size() || !there.inOrderOfRows) return true;
  return !std::ranges::equal(wanted.columns, std::span(there.columns).first(wanted.columns.size()),
                             [](const Column& a, const Column& b) {
                               return a.kind == b.kind && Upper(a.name) == Upper(b.name);
                             });
}

void StandIn(SQLite::Database& database, const Table& wanted, const Table& there) {
  std::string made;
  std::string taken;
  const auto add = [&](const std::string& column, const char* type, const std::string& value) {
    made += (made.empty() ? "" : ", ") + Quoted(column) + type;
    taken += (taken.empty() ? "" : ", ") + value;
  };
  for (const Column& column : wanted.columns) {
    const Column* own = Find(there, column.name);
    add(own == nullptr ? column.name : own->name, column.kind == Kind::Text ? " TEXT" : " NUMERIC",
        own == nullptr ? "NULL" : Quoted(own->name));
  }
  for (const Column& column : there.columns) {
    if (Find(wanted, column.name) == nullptr) add(column.name, "", Quoted(column.name));
  }
  const std::string name = Quoted(wanted.name);
  database.exec("CREATE TEMP TABLE " + name + " (" + made + ")");
  if (there.columns.empty()) return;
  database.exec("INSERT INTO temp." + name + " SELECT " + taken + " FROM main." + name +
                (there.inOrderOfRows ? " ORDER BY rowid" : ""));
}

// What keeps a column of a file from being the one that is wanted; "" for nothing.
std::string FaultOf(const Table& wanted, const Column& column, const Table& there,
                    bool alsoNumbers) {
  const Column* own = Find(there, column.name);
  const std::string named = "column \"" + column.name + "\"";
  const std::string ofTable = "The " + named + " of the table \"" + wanted.name + "\" is made for ";
  if (own == nullptr) return "The table \"" + wanted.name + "\" lacks the " + named + ".";
  if (column.kind == Kind::Text && own->kind == Kind::Number) {
    return ofTable + "numbers, where texts belong.";
  }
  if (alsoNumbers && column.kind == Kind::Number && own->kind == Kind::Text) {
    return ofTable + "texts, where numbers belong.";
  }
  return {};
}

std::vector<std::string> Lacks(const SQLite::Database& database, bool alsoNumbers) {
  std::vector<std::string> sentences;
  for (const Table& wanted : WantedTables()) {
    const Table there = TableIn(database, wanted.name);
    if (there.columns.empty()) {
      sentences.push_back("There is no table \"" + wanted.name + "\".");
      continue;
    }
    for (const Column& column : wanted.columns) {
      const std::string fault = FaultOf(wanted, column, there, alsoNumbers);
      if (!fault.empty()) sentences.push_back(fault);
    }
  }
  return sentences;
}

// Why a table with the name of one of the plays is not this program's; "" if it is, or if
// there is none.
std::string WhyForeign(const Table& wanted, const Table& there) {
  if (there.columns.empty()) return {};
  for (const Column& column : wanted.columns) {
    std::string fault = FaultOf(wanted, column, there, false);
    if (!fault.empty()) return fault;
  }
  return there.inOrderOfRows ? "" : "\"" + wanted.name + "\" is not an ordinary table.";
}

// Stand-ins for tables of one connection.
class StandIns {
 public:
  explicit StandIns(SQLite::Database& database) : database_(database) {}
  void Put(const Table& wanted, const Table& there) {
    if (!any_) database_.exec("PRAGMA temp_store = MEMORY");
    any_ = true;
    StandIn(database_, wanted, there);
  }

 private:
  SQLite::Database& database_;
  bool any_ = false;
};

}  // namespace

std::vector<std::string> WhatItLacks(const SQLite::Database& database) {
  return Lacks(database, true);
}

std::vector<std::string> WhatASaveLacks(const SQLite::Database& database) {
  return Lacks(database, false);
}

std::vector<std::string> WhatPlaysLack(const SQLite::Database& database) {
  std::vector<std::string> sentences;
  for (const Table& wanted : WantedPlayTables()) {
    const std::string why = WhyForeign(wanted, TableIn(database, wanted.name));
    if (!why.empty()) sentences.push_back(why);
  }
  return sentences;
}

std::vector<TableColumns> PlayTables() {
  std::vector<TableColumns> tables;
  for (const Table& wanted : WantedPlayTables()) {
    TableColumns& table = tables.emplace_back(TableColumns{wanted.name, {}});
    for (const Column& column : wanted.columns) table.columns.push_back(column.name);
  }
  return tables;
}

void StandInForLacking(SQLite::Database& database, const std::string& query) {
  StandIns standIns(database);
  const auto named = [&query](const Table& table) {
    return query.find(table.name) != std::string::npos;
  };
  for (const Table& wanted : WantedTables()) {
    if (!named(wanted)) continue;
    const Table there = TableIn(database, wanted.name);
    if (Differs(wanted, there)) standIns.Put(wanted, there);
  }
  for (const Table& wanted : WantedPlayTables()) {
    if (!named(wanted)) continue;
    Table there = TableIn(database, wanted.name);
    if (!WhyForeign(wanted, there).empty()) there.columns.clear();
    if (Differs(wanted, there)) standIns.Put(wanted, there);
  }
}

void StandInForMissing(SQLite::Database& database) {
  StandIns standIns(database);
  for (const Table& wanted : WantedTables()) {
    if (TableIn(database, wanted.name).columns.empty()) standIns.Put(wanted, Table{wanted.name});
  }
  for (const Table& wanted : WantedPlayTables()) {
    const Table there = TableIn(database, wanted.name);
    if (there.columns.empty() || !WhyForeign(wanted, there).empty()) {
      standIns.Put(wanted, Table{wanted.name});
    }
  }
}

}  // namespace dtb::sqlite
