#include "platform/jet/reader/jet_file.h"

#include <array>
#include <charconv>

namespace dtb::jet {
namespace {

constexpr int kDeleted = 0x8000;  // of the place of a row
constexpr int kMoved = 0x4000;    // at the place stands where the row is now
constexpr int kPlace = 0x1FFF;

std::string PlainText(double number) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return {digits.data(), end.ptr};
}

MdbCatalogEntry* EntryOf(MdbHandle& mdb, const std::string& name) {
  for (unsigned i = 0; i < mdb.num_catalog; ++i) {
    auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb.catalog, i));
    if (g_ascii_strcasecmp(entry->object_name, name.c_str()) == 0) return entry;
  }
  throw Fault("it has no table \"" + name + "\": it is no statistics database, or cut off.");
}

}  // namespace

Table::Table(MdbHandle& mdb, const TableColumns& wanted)
    : mdb_(mdb), wanted_(wanted), totals_(wanted.columns.size()) {
  table_ = mdb_read_table(EntryOf(mdb, wanted.table));
  if (table_ == nullptr || mdb_read_columns(table_) == nullptr) Damaged();
  if (table_->columns->len != table_->num_cols) Damaged();
  fields_.resize(table_->num_cols);
  FindColumns();
}

void Table::Damaged() const { throw Fault("its table \"" + wanted_.table + "\" is damaged."); }

void Table::FindColumns() {
  for (const std::string& name : wanted_.columns) {
    unsigned place = 0;
    for (; place < table_->num_cols; ++place) {
      const auto* column = static_cast<MdbColumn*>(g_ptr_array_index(table_->columns, place));
      if (g_ascii_strcasecmp(column->name, name.c_str()) == 0) break;
    }
    if (place == table_->num_cols) {
      throw Fault("its table \"" + wanted_.table + "\" has no column \"" + name +
                  "\": it is no statistics database.");
    }
    places_.push_back(place);
  }
}

void Table::Read(const std::function<void(const Cells&)>& row) {
  mdb_rewind_table(table_);
  while (mdb_read_next_dpg(table_) != 0) ReadPage(row);
  // A program that died with the file open leaves 0 there.
  const long told = table_->num_rows;
  if (told != 0 && told != rows_) {
    throw Fault("its table \"" + wanted_.table + "\" has " + std::to_string(told) +
                " rows, of which " + std::to_string(rows_) +
                " can be found: the file is cut off or damaged.");
  }
}

void Table::ReadPage(const std::function<void(const Cells&)>& row) {
  const int rows = mdb_get_int16(mdb_.pg_buf, mdb_.fmt->row_count_offset);
  for (int place = 0; place < rows; ++place) {
    int start = 0;
    std::size_t size = 0;
    if (mdb_find_row(&mdb_, place, &start, &size) != 0) Damaged();
    if ((start & kDeleted) != 0) continue;
    if ((start & kMoved) == 0) {
      row(ReadRow(start & kPlace, size));
      continue;
    }
    // A row that grew stands on another page, behind a place that is marked as deleted.
    start &= kPlace;
    if (size < 4) Damaged();
    void* page = nullptr;
    const auto target = static_cast<int>(mdb_get_int32(mdb_.pg_buf, start));
    if (mdb_find_pg_row(&mdb_, target, &page, &start, &size) != 0) Damaged();
    mdb_swap_pgbuf(&mdb_);
    row(ReadRow(start, size));
    mdb_swap_pgbuf(&mdb_);
  }
}

Cells Table::ReadRow(int start, std::size_t size) {
  if (size == 0 || start + size > static_cast<std::size_t>(mdb_.fmt->pg_size)) Damaged();
  if (mdb_crack_row(table_, start, size, fields_.data()) < 0) Damaged();
  ++rows_;
  Cells cells;
  for (std::size_t i = 0; i < places_.size(); ++i) {
    const MdbField& field = fields_[places_[i]];
    const auto& column = *static_cast<MdbColumn*>(g_ptr_array_index(table_->columns, places_[i]));
    // A truth is kept where others say whether they are Null.
    if (field.is_null != 0 && column.col_type != MDB_BOOL) {
      cells.emplace_back();
      continue;
    }
    const bool within = column.col_type == MDB_BOOL ||
                        (field.start >= start && field.siz >= 0 &&
                         static_cast<std::size_t>(field.start - start) + field.siz <= size);
    if (!within) Damaged();
    Value value;
    try {
      value = ValueOf(mdb_, column, field);
    } catch (const Fault& fault) {
      throw Fault("in its table \"" + wanted_.table + "\", row " + std::to_string(rows_) +
                  ", the column \"" + wanted_.columns[i] + "\" " + fault.what());
    }
    ++totals_[i].cells;
    totals_[i].bytes += static_cast<double>(value.text.size());
    totals_[i].sum += value.number;
    cells.emplace_back(std::move(value.text));
  }
  return cells;
}

Cells Table::Totals() const {
  Cells cells{std::to_string(rows_)};
  for (const ColumnTotals& column : totals_) {
    cells.emplace_back(std::to_string(column.cells));
    cells.emplace_back(PlainText(column.bytes));
    cells.emplace_back(PlainText(column.sum));
  }
  return cells;
}

}  // namespace dtb::jet
