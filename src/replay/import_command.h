// Old databases of the Jet format taken over without a window.
#pragma once

#include <string>
#include <vector>

namespace dtb::replay {

inline constexpr const char* kImportUsage = "import OLD.mdb NEW.mdb";

// Writes all that OLD holds into NEW, which must not be there yet, and says what it was. Returns
// the exit status: 0 done, 1 refused, and then there is no NEW, 2 not understood.
int RunImport(const std::vector<std::string>& arguments);

}  // namespace dtb::replay
