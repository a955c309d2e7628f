// Files of the Jet format, known by their heads.
#pragma once

#include <filesystem>

namespace dtb {

// The file begins as all files of that format do. It must not be open as a database: closing it
// here would cost that one its locks.
[[nodiscard]] bool IsOfJetFormat(const std::filesystem::path& file);

}  // namespace dtb
