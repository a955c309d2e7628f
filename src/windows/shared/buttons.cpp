#include "windows/shared/buttons.h"

#include <QScreen>
#include <algorithm>

#include "windows/shared/bind.h"
#include "windows/shared/look.h"
#include "windows/shared/scene.h"

namespace dtb {

QPushButton* MakeButton(const char* name, const QString& caption, const QString& tip,
                        QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  Name(button, name, caption);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  return button;
}

QPushButton* AddButton(QBoxLayout* row, const char* name, const char* caption, const char* tip) {
  QPushButton* button = MakeButton(name, QLatin1String(caption), QLatin1String(tip), nullptr);
  button->setFocusPolicy(Qt::TabFocus);
  row->addWidget(button);
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

double TakeTypeOfBoard(QDialog& dialog, std::span<QPushButton* const> buttons, QLabel* title) {
  const double scale = TypeScale(dialog.parentWidget());
  dialog.setFont(look::Font(look::kBody * scale));
  if (title != nullptr) title->setFont(look::Font(look::kLarge * scale, true));
  SizeButtons(buttons, scale);
  return scale;
}

void PlaceOverBoard(QDialog& dialog, const QSize& usual, double scale) {
  dialog.resize((usual * scale).boundedTo(dialog.screen()->availableSize() * 0.9));
  CenterForm(&dialog, dialog.parentWidget());
}

}  // namespace dtb
