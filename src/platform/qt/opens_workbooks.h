// Whether a program for workbooks is installed. There is one source for each system.
#pragma once

namespace dtb {

// Some program opens files of the type "xlsx".
[[nodiscard]] bool OpensWorkbooks();

}  // namespace dtb
