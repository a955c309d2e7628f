// What this version of the program is called.
#pragma once

#include <string>

namespace dtb {

inline constexpr const char* kProgramTitle = "Kelvane Diamond Table";

// The build label, as the main window's title and the about box give it.
inline constexpr const char* kBuildLabel = "Build025";

// "Kelvane Diamond Table (Build025)".
[[nodiscard]] std::string WindowTitle();

// "Version 1.0.2   [Build025]".
[[nodiscard]] std::string VersionText();

}  // namespace dtb
