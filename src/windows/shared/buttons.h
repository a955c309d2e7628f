// Buttons in a row, and the dialogs over the board that have one.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QString>
#include <span>

namespace dtb {

// One that Enter presses only where it has the focus.
[[nodiscard]] QPushButton* MakeButton(const char* name, const QString& caption, const QString& tip,
                                      QWidget* parent);

// The same at the end of a row. A click leaves it without the focus, so that Space after it does
// nothing twice.
QPushButton* AddButton(QBoxLayout* row, const char* name, const char* caption,
                       const char* tip = "");

// All of one height, and wide enough for their captions; `scale` 1: layout units are pixels.
void SizeButtons(std::span<QPushButton* const> buttons, double scale);

// A dialog over the board gets type and buttons of the board's scale, which is returned; the title
// is larger than the rest.
double TakeTypeOfBoard(QDialog& dialog, std::span<QPushButton* const> buttons, QLabel* title);
// Puts it over the middle of the board, at its usual size in layout units or what the screen has
// room for.
void PlaceOverBoard(QDialog& dialog, const QSize& usual, double scale);

}  // namespace dtb
