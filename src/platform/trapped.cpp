#include "platform/trapped.h"

namespace dtb {

void ReportError(MessageBoxes& boxes, int number, const std::string& description) {
  boxes.Show("The following error has occurred: " + std::to_string(number) + ", " + description,
             BoxIcon::Critical, "Program Error");
}

}  // namespace dtb
