#include "platform/sqlite/rows.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <memory>
#include <string_view>

#include "game/text_cell.h"
#include "platform/sqlite/connection.h"

namespace dtb::sqlite {
namespace {

// A double has no more than 15 digits that can be relied on: 0.1 + 0.2 is 0.3 to a person.
std::string PlainNumber(double number) {
  constexpr int kDigits = 15;
  std::string plain = DecimalText(number);
  if (plain.size() <= kDigits) return plain;
  std::array<char, 40> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                 std::chars_format::scientific, kDigits - 1);
  double rounded = number;
  std::from_chars(digits.data(), end.ptr, rounded);
  return DecimalText(rounded);
}

void AppendValue(CellColumn& column, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return column.Append({});
    case SQLITE_INTEGER:
      return column.AppendNumber(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
      return column.Append(PlainNumber(sqlite3_value_double(value)));
    default: {
      const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
      const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
      return column.Append(text == nullptr ? std::string_view() : std::string_view(text, size));
    }
  }
}

}  // namespace

// The library's own way to a value costs more than the value: hence the engine's bare calls here.
GridContents AllRows(const SQLite::Database& database, const Statement& query,
                     const std::filesystem::path& file) {
  sqlite3_stmt* made = nullptr;
  const int prepared =
      sqlite3_prepare_v2(database.getHandle(), query.text.c_str(), -1, &made, nullptr);
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(made,
                                                                             sqlite3_finalize);
  constexpr int kLookEvery = 10000;  // instructions of the engine, well below a millisecond
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
  GridContents contents{{""}, std::vector<CellColumn>(static_cast<std::size_t>(fields) + 1)};
  for (int field = 0; field < fields; ++field) {
    contents.headers.emplace_back(sqlite3_column_name(made, field));
  }
  int stepped = SQLITE_ROW;
  while ((stepped = sqlite3_step(made)) == SQLITE_ROW) {
    contents.columns.front().Append({});
    for (int field = 0; field < fields; ++field) {
      AppendValue(contents.columns[static_cast<std::size_t>(field) + 1],
                  sqlite3_column_value(made, field));
    }
  }
  if (stepped != SQLITE_DONE) ThrowFault(database, file);
  for (CellColumn& column : contents.columns) column.Fit();
  return contents;
}

}  // namespace dtb::sqlite
