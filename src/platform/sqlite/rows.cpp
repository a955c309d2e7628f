#include "platform/sqlite/rows.h"

#include <sqlite3.h>

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/sqlite/connection.h"

namespace dtb::sqlite {
namespace {

DatabaseValue ValueOf(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_value_int64(value)};
    case SQLITE_FLOAT:
      return sqlite3_value_double(value);
    default: {
      const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
      const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
      return text == nullptr ? std::string_view() : std::string_view(text, size);
    }
  }
}

}  // namespace

// SQLiteCpp's own way to a value costs more than the value: hence SQLite's bare calls here.
void GiveRows(const SQLite::Database& database, const Statement& query,
              const std::filesystem::path& file, RowSink& rows) {
  sqlite3_stmt* made = nullptr;
  const int prepared =
      sqlite3_prepare_v2(database.getHandle(), query.text.c_str(), -1, &made, nullptr);
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(made,
                                                                             sqlite3_finalize);
  constexpr int kLookEvery = 10000;  // instructions of SQLite, well below a millisecond
  if (query.stop.stop_possible()) {
    sqlite3_progress_handler(
        database.getHandle(), kLookEvery,
        [](void* stop) { return static_cast<std::stop_token*>(stop)->stop_requested() ? 1 : 0; },
        const_cast<std::stop_token*>(&query.stop));
  }
  if (prepared != SQLITE_OK) ThrowFault(database, file);
  for (std::size_t i = 0; i < query.bound.size(); ++i) {
    const std::string& text = query.bound[i];
    sqlite3_bind_text64(made, static_cast<int>(i) + 1, text.data(), text.size(), SQLITE_STATIC,
                        SQLITE_UTF8);
  }

  const int fields = sqlite3_column_count(made);
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(fields));
  for (int field = 0; field < fields; ++field) {
    names.emplace_back(sqlite3_column_name(made, field));
  }
  rows.TakeFields(std::move(names));
  std::vector<DatabaseValue> row(static_cast<std::size_t>(fields));
  int stepped = SQLITE_ROW;
  while ((stepped = sqlite3_step(made)) == SQLITE_ROW) {
    for (int field = 0; field < fields; ++field) {
      row[static_cast<std::size_t>(field)] = ValueOf(sqlite3_column_value(made, field));
    }
    rows.TakeRow(row);
  }
  if (stepped != SQLITE_DONE) ThrowFault(database, file);
}

}  // namespace dtb::sqlite
