#include "database/rows.h"

#include <array>
#include <charconv>
#include <utility>

#include "base/text_cell.h"

namespace dtb {
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

class GridSink : public RowSink {
 public:
  void TakeFields(std::vector<std::string> names) override {
    contents_.columns.resize(names.size() + 1);
    contents_.headers.emplace_back();
    for (std::string& name : names) contents_.headers.push_back(std::move(name));
  }
  void TakeRow(std::span<const DatabaseValue> row) override {
    contents_.columns.front().Append({});
    for (std::size_t field = 0; field < row.size(); ++field) {
      Append(contents_.columns[field + 1], row[field]);
    }
  }
  [[nodiscard]] GridContents Take() {
    for (CellColumn& column : contents_.columns) column.Fit();
    return std::move(contents_);
  }

 private:
  static void Append(CellColumn& column, const DatabaseValue& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return column.AppendNumber(*whole);
    if (const auto* text = std::get_if<std::string_view>(&value)) return column.Append(*text);
    column.Append(TextIn(value));
  }
  GridContents contents_;
};

class EachRowSink : public RowSink {
 public:
  explicit EachRowSink(const std::function<void(std::span<const DatabaseValue>)>& take)
      : take_(take) {}
  void TakeFields(std::vector<std::string> /*names*/) override {}
  void TakeRow(std::span<const DatabaseValue> row) override { take_(row); }

 private:
  const std::function<void(std::span<const DatabaseValue>)>& take_;
};

}  // namespace

std::string TextIn(const DatabaseValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return std::string(*text);
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&value)) return PlainNumber(*number);
  return {};
}

double NumberIn(const DatabaseValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return NumberOf(*text);
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  return 0;
}

void ForEachRow(DatabaseReader& database, const Statement& query,
                const std::function<void(std::span<const DatabaseValue>)>& take) {
  EachRowSink sink(take);
  database.Run(query, sink);
}

StatGrid TextsOf(DatabaseReader& database, const Statement& query) {
  GridSink sink;
  database.Run(query, sink);
  StatGrid texts(1, 1);
  texts.Replace(sink.Take());
  return texts;
}

int CountOf(DatabaseReader& database, const Statement& query) {
  int count = 0;
  ForEachRow(database, query, [&count](std::span<const DatabaseValue> row) {
    count = static_cast<int>(NumberIn(row.front()));
  });
  return count;
}

GridContents ContentsOf(const std::vector<std::string>& headers,
                        const std::vector<std::vector<std::string>>& rows) {
  GridContents contents{{""}, std::vector<CellColumn>(headers.size() + 1)};
  contents.headers.insert(contents.headers.end(), headers.begin(), headers.end());
  for (const auto& row : rows) {
    contents.columns.front().Append({});
    for (std::size_t i = 0; i < row.size(); ++i) contents.columns[i + 1].Append(row[i]);
  }
  return contents;
}

}  // namespace dtb
