// The buttons in the last row of a window.
#pragma once

#include <QPushButton>
#include <QString>
#include <span>

namespace dtb {

// One that Enter presses only where it has the focus.
[[nodiscard]] QPushButton* MakeButton(const char* name, const QString& caption, const QString& tip,
                                      QWidget* parent);

// All of one height, and wide enough for their captions; `scale` 1: layout units are pixels.
void SizeButtons(std::span<QPushButton* const> buttons, double scale);

}  // namespace dtb
