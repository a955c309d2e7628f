// A second look at a finished workbook file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace dtb::xlsx {

// False if the file is no zip archive, if one of its entries is no whole document, or if
// a sheet is shorter than its rows, of which the bytes are given sheet by sheet. libxlsxwriter that
// writes workbooks does not notice when the disk is full for a part of one, and its own unpacked
// sheets take much more of the disk than the file.
[[nodiscard]] bool HoldsWholeSheets(const std::filesystem::path& file,
                                    const std::vector<std::uint64_t>& rowBytes);

}  // namespace dtb::xlsx
