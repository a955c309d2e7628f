// The rows of a Jet file, as its reader tells them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "platform/jet/jet_frames.h"

namespace dtb::jet {

// What the reader added up in the file itself, for each column in our order.
struct ColumnTotals {
  std::int64_t cells = 0;  // that are not Null
  double bytes = 0;        // of the texts
  double sum = 0;          // of the cells that are numbers
};
struct TableTotals {
  std::int64_t rows = 0;
  std::vector<ColumnTotals> columns;
};

// What is called for the tables, whose place is the one in SavedTables: for each row, whose cells
// stand in the order of our columns, and behind its last row for the table.
struct RowsHeard {
  std::function<void(std::size_t table, const Cells& row)> row;
  std::function<void(std::size_t table, const TableTotals& totals)> totals;
};

// Reads all tables by a process of its own, which may die or be lost without harm: one that says
// nothing for so long, or more than the file can hold, is ended. Throws ProgramError, in words that
// complete "It cannot be imported: ".
inline constexpr int kLongestSilence = 15000;  // milliseconds
void ReadRows(const std::filesystem::path& file, const RowsHeard& heard,
              int longestSilence = kLongestSilence);

}  // namespace dtb::jet
