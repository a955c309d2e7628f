// Makes files of the Jet format, of 1997 (version 0: letters of one byte) and of later years.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace dtb {

struct JetColumn {
  // The numbers of the format.
  enum Type : std::uint8_t {
    Byte = 2,
    Short = 3,
    Long = 4,
    Money = 5,
    Float = 6,
    Double = 7,
    Date = 8,
    Text = 10,
    Ole = 11,
    Numeric = 16
  };
  std::string name;
  Type type = Long;
  bool fixed() const { return type != Text && type != Ole; }
  int size() const {
    switch (type) {
      case Byte:
        return 1;
      case Short:
        return 2;
      case Long:
      case Float:
        return 4;
      case Numeric:
        return 17;
      default:
        return fixed() ? 8 : 0;
    }
  }
};

// Nothing: Null. Texts are the bytes of the file.
using JetCell = std::variant<std::monostate, double, std::string>;
using JetRow = std::vector<JetCell>;

struct JetTable {
  std::string name;
  std::vector<JetColumn> columns;
  std::vector<JetRow> rows;
  std::vector<std::size_t> deleted = {};  // rows that are marked so
  std::vector<std::size_t> moved = {};    // rows that have grown out of their page
  int rowsMore = 0;                       // than there are, by the table's own count
};

class JetMaker {
 public:
  explicit JetMaker(bool ofOneByte, int codePage = 0)
      : old_(ofOneByte), page_(old_ ? 2048 : 4096), bytes_(3 * page_, '\0'), codePage_(codePage) {}

  void Add(const JetTable& table) {
    catalog_.rows.push_back({double(Pages()), Letters(table.name), 1.0, 0.0, std::monostate()});
    const std::size_t definition = Pages();
    bytes_.resize(bytes_.size() + page_);
    Write(table, definition);
  }

  std::string Bytes() {
    Write(catalog_, 2);
    bytes_.replace(0, 4, std::string("\0\1\0\0", 4));
    bytes_.replace(4, 15, "Standard Jet DB");
    bytes_[0x14] = old_ ? 0 : 1;
    Put(0, 0x3C, codePage_, 2);
    Mask();
    return bytes_;
  }

  // A name or text as the file has it: of plain letters.
  std::string Letters(const std::string& plain) const {
    if (old_) return plain;
    std::string wide;
    for (const char letter : plain) wide += {letter, '\0'};
    return wide;
  }

 private:
  std::size_t Pages() const { return bytes_.size() / page_; }
  std::size_t RowCountAt() const { return old_ ? 8 : 12; }

  void Put(std::size_t page, std::size_t at, std::uint64_t number, int size) {
    for (int i = 0; i < size; ++i) {
      bytes_[page * page_ + at + i] = static_cast<char>(number >> 8 * i & 0xFF);
    }
  }
  static std::string Little(std::uint64_t number, int size) {
    std::string text;
    for (int i = 0; i < size; ++i) text += static_cast<char>(number >> 8 * i & 0xFF);
    return text;
  }

  // Rows on a page of their own or on the last one, each behind the one before it.
  struct Place {
    std::size_t page;
    int row;
  };
  Place PutRow(std::size_t page, const std::string& row, int flags) {
    const std::size_t count = RowCountAt();
    const std::size_t base = page * page_;
    const int rows = static_cast<unsigned char>(bytes_[base + count]) |
                     static_cast<unsigned char>(bytes_[base + count + 1]) << 8;
    std::size_t end = page_;
    if (rows > 0) {
      const std::size_t at = base + count + 2 * rows;
      end = (static_cast<unsigned char>(bytes_[at]) | static_cast<unsigned char>(bytes_[at + 1])
                                                          << 8) &
            0x1FFF;
    }
    if (count + 2 + 2 * (rows + 1) + row.size() > end) return {0, -1};
    bytes_.replace(base + end - row.size(), row.size(), row);
    Put(page, count + 2 + 2 * rows, (end - row.size()) | flags, 2);
    Put(page, count, rows + 1, 2);
    return {page, rows};
  }
  std::size_t NewDataPage(std::size_t owner) {
    const std::size_t page = Pages();
    bytes_.resize(bytes_.size() + page_);
    Put(page, 0, 0x0101, 2);
    Put(page, 4, owner, 4);
    return page;
  }

  std::string FixedBytes(const JetColumn& column, double number) const {
    const auto whole = static_cast<std::int64_t>(number);
    if (column.type == JetColumn::Money) {
      return Little(static_cast<std::uint64_t>(static_cast<std::int64_t>(number * 10000)), 8);
    }
    if (column.type == JetColumn::Float) {
      const auto small = static_cast<float>(number);
      std::uint32_t bits = 0;
      std::memcpy(&bits, &small, 4);
      return Little(bits, 4);
    }
    if (column.type == JetColumn::Double || column.type == JetColumn::Date) {
      std::uint64_t bits = 0;
      std::memcpy(&bits, &number, 8);
      return Little(bits, 8);
    }
    if (column.type == JetColumn::Numeric) {  // two decimals; the lowest word of four stands last
      const std::uint64_t digits = static_cast<std::uint64_t>((whole < 0 ? -number : number) * 100);
      return std::string(1, whole < 0 ? '\x80' : '\0') + std::string(12, '\0') + Little(digits, 4);
    }
    return Little(static_cast<std::uint64_t>(whole), column.size());
  }

  std::string RowBytes(const JetTable& table, const JetRow& row) const {
    const int wide = old_ ? 1 : 2;
    std::string bytes = Little(table.columns.size(), wide);
    std::string mask((table.columns.size() + 7) / 8, '\0');
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (row[i].index() != 0) mask[i / 8] = static_cast<char>(mask[i / 8] | 1 << i % 8);
      if (!table.columns[i].fixed()) continue;
      const double* number = std::get_if<double>(&row[i]);
      bytes += FixedBytes(table.columns[i], number == nullptr ? 0 : *number);
    }
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (table.columns[i].fixed()) continue;
      offsets.push_back(bytes.size());
      if (const auto* text = std::get_if<std::string>(&row[i])) bytes += *text;
    }
    offsets.push_back(bytes.size());
    for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset) {
      bytes += Little(*offset, wide);
    }
    return bytes + Little(offsets.size() - 1, wide) + mask;
  }

  void Write(const JetTable& table, std::size_t definition) {
    WriteDefinition(table, definition);
    std::vector<std::size_t> pages;
    const auto put = [&](const std::string& row, int flags) {
      Place place{0, -1};
      if (!pages.empty()) place = PutRow(pages.back(), row, flags);
      if (place.row < 0) {
        pages.push_back(NewDataPage(definition));
        place = PutRow(pages.back(), row, flags);
      }
      return place;
    };
    const auto has = [](const std::vector<std::size_t>& places, std::size_t place) {
      for (const std::size_t one : places) {
        if (one == place) return true;
      }
      return false;
    };
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
      const std::string row = RowBytes(table, table.rows[i]);
      if (has(table.moved, i)) {
        const Place now = put(row, 0x8000);
        put(Little(now.page << 8 | now.row, 4), 0x4000);
      } else {
        put(row, has(table.deleted, i) ? 0xC000 : 0);
      }
    }
    const std::size_t map = NewDataPage(0);
    std::string used(5 + 64, '\0');
    for (const std::size_t page : pages) {
      used[5 + page / 8] = static_cast<char>(used[5 + page / 8] | 1 << page % 8);
    }
    PutRow(map, used, 0);
    PutRow(map, std::string(5 + 64, '\0'), 0);
    Put(definition, old_ ? 35 : 55, map << 8, 4);
    Put(definition, old_ ? 39 : 59, map << 8 | 1, 4);
  }

  void WriteDefinition(const JetTable& table, std::size_t page) {
    const std::size_t columns = table.columns.size();
    const auto rows = static_cast<int>(table.rows.size() - table.deleted.size());
    Put(page, 0, 0x0102, 2);
    Put(page, old_ ? 12 : 16, rows + table.rowsMore, 4);
    Put(page, old_ ? 25 : 45, columns, 2);
    std::size_t at = old_ ? 43 : 63;
    int variable = 0;
    int fixedAt = 0;
    for (std::size_t i = 0; i < columns; ++i, at += old_ ? 18 : 25) {
      const JetColumn& column = table.columns[i];
      Put(page, at, column.type, 1);
      Put(page, at + (old_ ? 1 : 5), i, 1);
      Put(page, at + (old_ ? 3 : 7), column.fixed() ? 0 : variable++, 2);
      Put(page, at + (old_ ? 5 : 9), i, 2);
      if (column.type == JetColumn::Numeric) {
        Put(page, at + (old_ ? 9 : 11), 18, 1);
        Put(page, at + (old_ ? 10 : 12), 2, 1);
      }
      Put(page, at + (old_ ? 13 : 15), column.fixed() ? 1 : 0, 1);
      Put(page, at + (old_ ? 14 : 21), column.fixed() ? fixedAt : 0, 2);
      Put(page, at + (old_ ? 16 : 23), column.fixed() ? column.size() : 255, 2);
      fixedAt += column.fixed() ? column.size() : 0;
    }
    Put(page, old_ ? 23 : 43, variable, 2);
    for (const JetColumn& column : table.columns) {
      const std::string name = Letters(column.name);
      Put(page, at, name.size(), old_ ? 1 : 2);
      at += old_ ? 1 : 2;
      bytes_.replace(page * page_ + at, name.size(), name);
      at += name.size();
    }
  }

  // The head is hidden behind a cipher whose key everybody has.
  void Mask() {
    const unsigned char key[] = {0xC7, 0xDA, 0x39, 0x6B};
    unsigned char state[256];
    for (int i = 0; i < 256; ++i) state[i] = static_cast<unsigned char>(i);
    for (int i = 0, j = 0; i < 256; ++i) {
      j = (j + state[i] + key[i % 4]) % 256;
      std::swap(state[i], state[j]);
    }
    for (int i = 0, x = 0, y = 0; i < (old_ ? 126 : 128); ++i) {
      x = (x + 1) % 256;
      y = (y + state[x]) % 256;
      std::swap(state[x], state[y]);
      bytes_[0x18 + i] = static_cast<char>(bytes_[0x18 + i] ^ state[(state[x] + state[y]) % 256]);
    }
  }

  bool old_;
  std::size_t page_;
  std::string bytes_;
  int codePage_;
  JetTable catalog_{"MSysObjects",
                    {{"Id", JetColumn::Long},
                     {"Name", JetColumn::Text},
                     {"Type", JetColumn::Short},
                     {"Flags", JetColumn::Long},
                     {"LvProp", JetColumn::Ole}},
                    {}};
};

}  // namespace dtb
