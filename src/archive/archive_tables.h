// Tables of the window of an archive.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "base/stat_grid.h"

namespace dtb::archive {

[[nodiscard]] inline GridContents Headed(std::initializer_list<const char*> headers) {
  GridContents contents;
  for (const char* header : headers) contents.headers.emplace_back(header);
  contents.columns.resize(contents.headers.size());
  return contents;
}

inline void AddRow(GridContents& contents, const std::vector<std::string>& cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) contents.columns[i].Append(cells[i]);
}

// Bands the rows and sizes the columns as well.
inline void Fill(StatGrid& grid, GridContents contents, const std::vector<int>& widths) {
  grid.Replace(std::move(contents));
  grid.SetRowBands(kWhite, Colour{240, 240, 236}, 1);
  for (int column = 0; column < grid.columns(); ++column) {
    grid.SetColumnWidth(column, widths.at(column));
  }
}

}  // namespace dtb::archive
