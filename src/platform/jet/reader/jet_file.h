// A file of the Jet format, read by libmdb.
#pragma once

#if __has_include(<glib.h>)
#include <glib.h>  // libmdb includes it as C, which C++ has to read first; it may have one of its own
#endif
#include <mdbtools.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/database.h"
#include "platform/jet/jet_frames.h"

namespace dtb::jet {

// Why a file cannot be taken over, in words that complete "It cannot be imported: ".
class Fault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What comes of one column: cells that are not Null, the bytes of their texts, and the sum of those
// that are numbers, added up from the file's own numbers.
struct ColumnTotals {
  long cells = 0;
  double bytes = 0;
  double sum = 0;
};

// One value of the page in libmdb's buffer. Throws Fault.
struct Value {
  std::string text;
  double number = 0;  // 0 for what is none
};
[[nodiscard]] Value ValueOf(MdbHandle& mdb, const MdbColumn& column, const MdbField& field);

// Reads the rows of a table, with the columns by their names. Throws Fault for what is missing or
// makes no sense, and where not as many rows are found as the file says it has.
class Table {
 public:
  Table(MdbHandle& mdb, const TableColumns& wanted);
  ~Table() { mdb_free_tabledef(table_); }
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;

  void Read(const std::function<void(const Cells&)>& row);
  [[nodiscard]] Cells Totals() const;

 private:
  void FindColumns();
  void ReadPage(const std::function<void(const Cells&)>& row);
  [[nodiscard]] Cells ReadRow(int start, std::size_t size);
  [[noreturn]] void Damaged() const;

  MdbHandle& mdb_;
  const TableColumns& wanted_;
  MdbTableDef* table_ = nullptr;
  std::vector<unsigned> places_;  // of our columns among the file's
  std::vector<MdbField> fields_;
  std::vector<ColumnTotals> totals_;
  long rows_ = 0;
};

}  // namespace dtb::jet
