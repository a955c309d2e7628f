#include "windows/season/season_parts.h"

#include "windows/shared/bind.h"
#include "windows/shared/controls.h"

namespace dtb {

QBoxLayout* Column(QWidget* view) {
  auto* column = new QVBoxLayout(view);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  return column;
}

QBoxLayout* Strip(QBoxLayout* place) {
  auto* strip = new QHBoxLayout;
  strip->setSpacing(8);
  place->addLayout(strip);
  return strip;
}

QPushButton* AddSwitch(QBoxLayout* place, const char* name, const char* caption) {
  auto* button = new QPushButton(QLatin1String(caption));
  Name(button, name, QLatin1String(caption));
  button->setAutoDefault(false);
  button->setCheckable(true);
  place->addWidget(button);
  return button;
}

StatGridView* MakeGrid(const char* name, const QString& accessibleName, StatGrid& grid) {
  auto* view = new StatGridView(grid, nullptr);
  Name(view, name, accessibleName);
  view->ShowAsResult();
  view->StretchAllColumns();
  view->setSelectionBehavior(QTableView::SelectRows);
  return view;
}

QLabel* AddCaption(QBoxLayout* place, const QString& text) {
  QLabel* label = MakeCaption(text, nullptr);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  place->addWidget(label);
  return label;
}

}  // namespace dtb
