// The standard report of an unexpected error.
#pragma once

#include <string>

#include "base/program_error.h"
#include "platform/platform.h"

namespace dtb {

// Shows the box "Program Error" for an error.
void ReportError(MessageBoxes& boxes, int number, const std::string& description);

// Runs one whole operation. An error that leaves it is told in the box "Program Error". False: the
// operation did not come to its end.
template <class Operation>
bool Trapped(MessageBoxes& boxes, Operation&& operation) {
  bool whole = true;
  TrappedBy(
      [&](int number, const std::string& description) {
        whole = false;
        ReportError(boxes, number, description);
      },
      operation);
  return whole;
}

}  // namespace dtb
