#include "base/version.h"

namespace dtb {

std::string WindowTitle() { return std::string(kProgramTitle) + " (" + kBuildLabel + ")"; }

std::string VersionText() {
  return std::string("Version ") + DTB_VERSION + "   [" + kBuildLabel + "]";
}

}  // namespace dtb
