// A zip file, opened by its path, whatever letters that has.
#pragma once

#include <minizip/unzip.h>

#include <filesystem>

#ifdef _WIN32
#include <minizip/iowin32.h>
#endif

namespace dtb {

// Null where it cannot be opened as a zip file.
[[nodiscard]] inline unzFile OpenZip(const std::filesystem::path& file) {
#ifdef _WIN32
  zlib_filefunc64_def functions{};
  fill_win32_filefunc64W(&functions);
  return unzOpen2_64(file.c_str(), &functions);
#else
  return unzOpen64(file.c_str());
#endif
}

}  // namespace dtb
