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

std::vector<Table> TablesIn(const SQLite::Database& database) {
  std::vector<Table> tables;
  tables.reserve(kTables.size());
  for (const char* name : kTables) tables.push_back(TableIn(database, name));
  return tables;
}

const std::vector<Table>& WantedTables() {
  static const std::vector<Table> wanted = [] {
    SQLite::Database model(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    model.exec(kSchema);
    return TablesIn(model);
  }();
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

template <class Needed>
void StandInWhere(SQLite::Database& database, Needed needed) {
  bool first = true;
  for (const Table& wanted : WantedTables()) {
    const Table there = TableIn(database, wanted.name);
    if (!needed(wanted, there)) continue;
    if (first) database.exec("PRAGMA temp_store = MEMORY");
    first = false;
    StandIn(database, wanted, there);
  }
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
      const Column* own = Find(there, column.name);
      const std::string named = "column \"" + column.name + "\"";
      if (own == nullptr) {
        sentences.push_back("The table \"" + wanted.name + "\" lacks the " + named + ".");
      } else if (column.kind == Kind::Text && own->kind == Kind::Number) {
        sentences.push_back("The " + named + " of the table \"" + wanted.name +
                            "\" is made for numbers, where texts belong.");
      } else if (alsoNumbers && column.kind == Kind::Number && own->kind == Kind::Text) {
        sentences.push_back("The " + named + " of the table \"" + wanted.name +
                            "\" is made for texts, where numbers belong.");
      }
    }
  }
  return sentences;
}

}  // namespace

std::vector<std::string> WhatItLacks(const SQLite::Database& database) {
  return Lacks(database, true);
}

std::vector<std::string> WhatASaveLacks(const SQLite::Database& database) {
  return Lacks(database, false);
}

void StandInForLacking(SQLite::Database& database) { StandInWhere(database, Differs); }

void StandInForMissing(SQLite::Database& database) {
  StandInWhere(database,
               [](const Table& /*wanted*/, const Table& there) { return there.columns.empty(); });
}

}  // namespace dtb::sqlite
