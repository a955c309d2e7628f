// How a text field is left.
#pragma once

#include <QLineEdit>
#include <functional>

namespace dtb {

// Esc leaves the text field. Before, `takeBack` puts back what stood there at the beginning of the
// visit; the focus stays if it returns false.
void LeaveOnEscape(QLineEdit* edit, std::function<bool()> takeBack);

// Ends the visit of a text field in the window of this control, if there is one: the keys are the
// board's again.
void EndTextVisit(const QWidget* control);

}  // namespace dtb
