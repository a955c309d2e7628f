// How the tables of a file differ from those that this program makes.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <vector>

#include "platform/database.h"

namespace dtb::sqlite {

// A sentence for each table or column that is missing, or made for numbers where texts belong or
// the other way round.
[[nodiscard]] std::vector<std::string> WhatItLacks(const SQLite::Database& database);

// Puts a temporary table, which this connection alone sees, before each table that differs and that
// the query names: with all columns in their order and of their types, empty ones for those that
// are missing, and further ones of the file's own behind them. Statements find it under the table's
// name. A file as it should be costs a look at each of those tables.
//
// A table of the plays that lacks a column is somebody else's, who happened to choose its name.
// Before it, as before one that is missing, stands an empty one.
void StandInForLacking(SQLite::Database& database, const std::string& query);

// The same, an empty one, before each table that is missing, and before those of somebody else:
// there is nothing in it to be changed.
void StandInForMissing(SQLite::Database& database);

// Some of the columns keep a save from being what it should be: they are missing, or turn a name of
// digits into a number.
[[nodiscard]] std::vector<std::string> WhatASaveLacks(const SQLite::Database& database);

// The same for the tables of the plays. One that is missing lacks nothing: it can be made.
[[nodiscard]] std::vector<std::string> WhatPlaysLack(const SQLite::Database& database);

// Their names and columns.
[[nodiscard]] std::vector<TableColumns> PlayTables();

}  // namespace dtb::sqlite
