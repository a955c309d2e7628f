// How the tables of a file differ from those that this program makes.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <vector>

namespace dtb::sqlite {

// A sentence for each table or column that is missing, or made for numbers where texts belong or
// the other way round.
[[nodiscard]] std::vector<std::string> WhatItLacks(const SQLite::Database& database);

// Puts a temporary table, which this connection alone sees, before each table that differs: with
// all columns in their order and of their types, empty ones for those that are missing, and further
// ones of the file's own behind them. Statements find it under the table's name. A file as it
// should be costs a look at five tables.
void StandInForLacking(SQLite::Database& database);

// The same, an empty one, before each table that is missing: there is nothing in it to be changed.
void StandInForMissing(SQLite::Database& database);

// Some of the columns keep a save from being what it should be: they are missing, or turn a name of
// digits into a number.
[[nodiscard]] std::vector<std::string> WhatASaveLacks(const SQLite::Database& database);

}  // namespace dtb::sqlite
