// A statistics database of the Jet format, from before this program, in place of
// ours.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace dtb {

// What is in an old database: its games, and the rows of each table in the order of SavedTables.
struct OldContents {
  int games = 0;
  std::vector<std::int64_t> rows;
};

// All errors are ProgramErrors whose words complete "It cannot be imported: ", and then nothing
// has changed.
class OldDatabase {
 public:
  virtual ~OldDatabase() = default;

  // The file in the database's place is one of the Jet format, by its head. The rest is not read.
  [[nodiscard]] virtual bool StandsInPlace() = 0;
  // Reads the whole file. Refuses one that is cut off, encrypted or damaged, or that lacks a table
  // or a column.
  [[nodiscard]] virtual OldContents Contents() = 0;
  // Writes all rows into a new database in one transaction, compares counts and sums of both, and
  // puts it in place. The old file goes on beside it as `asideName`, or with a number behind it
  // where the name is taken. Returns its name.
  virtual std::string TakeOver(const std::string& asideName) = 0;
};

}  // namespace dtb
