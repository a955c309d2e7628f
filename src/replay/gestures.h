// Real mouse and key events at the controls of the program's windows.
#pragma once

#include <QString>
#include <QTest>
#include <QWidget>
#include <stdexcept>

namespace dtb::replay {

// Why a gesture cannot be made.
class Refused : public std::runtime_error {
 public:
  explicit Refused(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};

// A place inside a control, in pixels.
struct Target {
  QWidget* control = nullptr;
  QPoint place;
};

// The window that takes the input; null when none is open.
[[nodiscard]] QWidget* FrontWindow();

// All of the following throw Refused: for what is not in the front window, and for a gesture at a
// control that is hidden, disabled or covered there.

// "NAME" or "WINDOW.NAME"; an index may stand in [ ] or ( ).
[[nodiscard]] QWidget* FindControl(QString name);
// "NAME", which stands for the middle of it, or "NAME@X,Y".
[[nodiscard]] Target TargetAt(const QString& nameAndPlace);
// A row of a list or a cell of a table, header row 0; it is scrolled into view.
[[nodiscard]] Target TargetAtRow(const QString& list, int row);
[[nodiscard]] Target TargetAtCell(const QString& table, int row, int column);
[[nodiscard]] Target TargetAtTab(const QString& name, int tab);
// An entry of the menu bar.
[[nodiscard]] Target TargetAtMenu(const QString& caption);

// Modifiers are keys that are really held meanwhile.
void Click(const Target& target, Qt::MouseButton button = Qt::LeftButton,
           Qt::KeyboardModifiers modifiers = {}, QTest::MouseAction action = QTest::MouseClick);
// With the left button; what covers the end does not matter.
void Drag(const Target& from, const Target& to, Qt::KeyboardModifiers modifiers = {});
// Both rows must be in view together.
void DragRow(const QString& list, int from, int to, Qt::KeyboardModifiers modifiers = {});
// Clicks into the text field and types over all of its text.
void TypeText(QWidget* field, const QString& text);
// "Return", "Ctrl+F12": it names a key.
[[nodiscard]] bool IsKey(const QString& key);
// The control takes the focus, then the key.
void PressKey(QWidget* control, const QString& key);

}  // namespace dtb::replay
