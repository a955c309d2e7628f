// How a text field is left.
#pragma once

#include <QLineEdit>
#include <functional>

namespace dtb {

// Esc leaves the text field. Before, `takeBack` puts back what stood there at the beginning of the
// visit; the focus stays if it returns false.
void LeaveOnEscape(QLineEdit* edit, std::function<bool()> takeBack);

}  // namespace dtb
