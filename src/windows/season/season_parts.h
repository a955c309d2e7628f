// Pieces of which the views of a season are built.
#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "windows/shared/stat_grid_view.h"

namespace dtb {

// A column that fills a view, and a row at the end of another layout.
QBoxLayout* Column(QWidget* view);
QBoxLayout* Strip(QBoxLayout* place);

// A button that stays pressed, at the end of a layout.
QPushButton* AddSwitch(QBoxLayout* place, const char* name, const char* caption);

// A table of rows that are chosen as a whole, as wide as its place. The grid has to outlive it.
[[nodiscard]] StatGridView* MakeGrid(const char* name, const QString& accessibleName,
                                     StatGrid& grid);

// A caption at the end of a layout, which is cut before it makes the window wider.
QLabel* AddCaption(QBoxLayout* place, const QString& text);

}  // namespace dtb
