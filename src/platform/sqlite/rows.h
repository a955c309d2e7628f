// What a query gives.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>

#include "platform/database.h"

namespace dtb::sqlite {

// Runs a query on an open connection, as DatabaseReader::Run tells. Throws ProgramError.
void GiveRows(const SQLite::Database& database, const Statement& query,
              const std::filesystem::path& file, RowSink& rows);

}  // namespace dtb::sqlite
