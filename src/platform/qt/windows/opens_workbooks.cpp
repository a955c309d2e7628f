#include "platform/qt/opens_workbooks.h"

#include <windows.h>
//
#include <shlwapi.h>

namespace dtb {

bool OpensWorkbooks() {
  // Where no program does, the window for choosing one stands in for it, which is no answer.
  constexpr DWORD kOnlyReal = ASSOCF_INIT_IGNOREUNKNOWN;
  DWORD length = 0;
  return AssocQueryStringW(kOnlyReal, ASSOCSTR_EXECUTABLE, L".xlsx", nullptr, nullptr, &length) ==
             S_FALSE &&
         length > 1;
}

}  // namespace dtb
