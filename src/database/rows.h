// Results of queries: as values, as a table of texts, as one number.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "base/stat_grid.h"
#include "platform/database.h"

namespace dtb {

// The value as plain text: Null is "", a number has at most 15 digits, 1 and 6.33, never 1.0.
[[nodiscard]] std::string TextIn(const DatabaseValue& value);

// The value as a number; a text counts as NumberOf counts it, and Null as 0.
[[nodiscard]] double NumberIn(const DatabaseValue& value);

// Calls the function with each row of a result. Throws ProgramError, here and below.
void ForEachRow(DatabaseReader& database, const Statement& query,
                const std::function<void(std::span<const DatabaseValue>)>& take);

// The result as texts: row 0 has the names of the fields from column 1 on, each record is a row
// from row 1 on, column 0 is empty.
[[nodiscard]] StatGrid TextsOf(DatabaseReader& database, const Statement& query);

// A table of texts for a grid of a window, from column 1 on.
[[nodiscard]] GridContents ContentsOf(const std::vector<std::string>& headers,
                                      const std::vector<std::vector<std::string>>& rows);

// The whole number that a query gives in its only cell; 0 where it gives none.
[[nodiscard]] int CountOf(DatabaseReader& database, const Statement& query);

}  // namespace dtb
