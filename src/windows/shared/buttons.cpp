#include "windows/shared/buttons.h"

#include <algorithm>

#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {

QPushButton* MakeButton(const char* name, const QString& caption, const QString& tip,
                        QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  Name(button, name, caption);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  return button;
}

void SizeButtons(std::span<QPushButton* const> buttons, double scale) {
  constexpr double kHeight = 36;       // layout units
  constexpr double kLeastWidth = 2.5;  // of its height
  const int high = qRound(kHeight * scale);
  for (QPushButton* button : buttons) {
    button->setFixedHeight(high);
    button->setMinimumWidth(std::max(
        qRound(kLeastWidth * high), look::TextWidth(button->fontMetrics(), button->text()) + high));
  }
}

}  // namespace dtb
