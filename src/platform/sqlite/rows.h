// What a query gives.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>

#include "platform/database.h"
#include "sheet/stat_grid.h"

namespace dtb::sqlite {

// Runs a query on an open connection; its texts, as DatabaseReader::Run tells. Throws ProgramError.
[[nodiscard]] GridContents AllRows(const SQLite::Database& database, const Statement& query,
                                   const std::filesystem::path& file);

}  // namespace dtb::sqlite
