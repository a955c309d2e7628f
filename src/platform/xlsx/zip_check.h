// A second look at a finished workbook file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace dtb::xlsx {

// False if the file is no zip archive, if one of its short entries does not end as a document does,
// or if a sheet is shorter than its rows, of which the bytes are given sheet by sheet. The library
// that writes workbooks does not notice when the disk is full for a part of one.
[[nodiscard]] bool HoldsWholeSheets(const std::filesystem::path& file,
                                    const std::vector<std::uint64_t>& rowBytes);

}  // namespace dtb::xlsx
