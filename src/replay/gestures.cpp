#include "replay/gestures.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMetaEnum>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QWindow>
#include <optional>

#include "windows/boxes/message_box.h"

namespace dtb::replay {
namespace {

QString NameOf(const QWidget* widget) {
  const QString name = widget->objectName();
  const bool known = !name.isEmpty() && !name.startsWith("qt_");
  return known || !widget->parentWidget() ? name : NameOf(widget->parentWidget());
}

void RequireUsable(const QWidget* control) {
  if (!control->isVisible()) throw Refused(NameOf(control) + " is hidden");
  if (!control->isEnabled()) throw Refused(NameOf(control) + " is disabled");
}

// The target's place in its window.
QPoint Require(const Target& target) {
  RequireUsable(target.control);
  const QWidget* window = target.control->window();
  const QPoint place = target.control->mapTo(window, target.place);
  const QWidget* hit = window->childAt(place);
  if (hit == nullptr) hit = window;
  if (!target.control->rect().contains(target.place) || !window->rect().contains(place)) {
    throw Refused(NameOf(target.control) + " does not show that place");
  }
  if (hit != target.control && !target.control->isAncestorOf(hit)) {
    throw Refused(NameOf(target.control) + " is covered by " + NameOf(hit));
  }
  return place;
}

// Presses or releases the modifier keys.
void Hold(QWindow* window, Qt::KeyboardModifiers modifiers, QTest::KeyAction action) {
  if (modifiers & Qt::ControlModifier) QTest::keyEvent(action, window, Qt::Key_Control);
  if (modifiers & Qt::ShiftModifier) QTest::keyEvent(action, window, Qt::Key_Shift);
}

template <class Widget>
Widget* Find(const QString& name, const char* kind) {
  if (auto* found = qobject_cast<Widget*>(FindControl(name))) return found;
  throw Refused(name + " is no " + kind);
}

// The key behind the modifiers; none for a name that no key has.
std::optional<Qt::Key> KeyOf(const QString& key) {
  const QString name = key.section('+', -1);
  int code = QMetaEnum::fromType<Qt::Key>().keyToValue(("Key_" + name).toLatin1());
  if (code < 0 && !name.isEmpty()) code = QKeySequence(name)[0].key();
  if (code < 0 || code == Qt::Key_unknown) return std::nullopt;
  return Qt::Key(code);
}

Target TargetAtIndex(QAbstractItemView* view, const QModelIndex& index) {
  if (!index.isValid()) throw Refused(view->objectName() + " has no such row or column");
  view->scrollTo(index);
  return {view->viewport(), view->visualRect(index).center()};
}

}  // namespace

QWidget* FrontWindow() {
  if (MessageBox* box = MessageBox::Open()) return box->window();
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  // A window beside the board, until it is closed; of several the one in use, or one that does not
  // depend on where they stand in memory.
  QWidget* beside = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (!qobject_cast<QDialog*>(window) || !window->isVisible()) continue;
    if (window->isActiveWindow()) return window;
    if (beside == nullptr || window->objectName() < beside->objectName()) beside = window;
  }
  if (beside != nullptr) return beside;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (qobject_cast<QMainWindow*>(window) && window->isVisible()) return window;
  }
  return nullptr;
}

QWidget* FindControl(QString name) {
  QWidget* front = FrontWindow();
  if (front == nullptr) throw Refused("no window is open");
  name.replace('(', '[').replace(')', ']');
  const QString window = name.contains('.') ? name.section('.', 0, 0) : front->objectName();
  if (window != front->objectName()) throw Refused(window + " is not the front window");
  name = name.section('.', -1);
  if (name.isEmpty()) throw Refused("the name of a control is missing");
  for (QWidget* place : {static_cast<QWidget*>(MessageBox::Open()), front}) {
    if (place == nullptr) continue;
    if (place->objectName() == name) return place;
    // A window's children include other windows, whose controls may have the same names.
    for (QWidget* control : place->findChildren<QWidget*>(name)) {
      if (control->window() == front) return control;
    }
  }
  throw Refused("there is no " + name + " in " + window);
}

Target TargetAt(const QString& nameAndPlace) {
  QWidget* control = FindControl(nameAndPlace.section('@', 0, 0));
  QPoint place = control->rect().center();
  // A check box takes clicks on its mark and caption only, which lie at its left.
  const bool mark = qobject_cast<QCheckBox*>(control) || qobject_cast<QRadioButton*>(control);
  if (mark) place.setX(std::min(place.x(), 10));
  if (nameAndPlace.contains('@')) {
    const QString given = nameAndPlace.section('@', 1);
    bool isX = false;
    bool isY = false;
    place = {given.section(',', 0, 0).toInt(&isX), given.section(',', 1).toInt(&isY)};
    if (!isX || !isY) throw Refused("\"" + given + "\" is not a place");
  }
  return {control, place};
}

Target TargetAtRow(const QString& list, int row) {
  auto* view = Find<QAbstractItemView>(list, "list");
  return TargetAtIndex(view, view->model()->index(row, 0));
}

Target TargetAtCell(const QString& table, int row, int column) {
  auto* view = Find<QTableView>(table, "table");
  if (view->isColumnHidden(column)) throw Refused(QString("column %1 is hidden").arg(column));
  const Target cell = TargetAtIndex(view, view->model()->index(std::max(row - 1, 0), column));
  if (row > 0) return cell;
  QHeaderView* header = view->horizontalHeader();
  return {header->viewport(), {cell.place.x(), header->height() / 2}};
}

Target TargetAtTab(const QString& name, int tab) {
  const auto* tabs = qobject_cast<QTabWidget*>(FindControl(name));
  auto* bar = tabs ? tabs->tabBar() : Find<QTabBar>(name, "tab bar");
  return {bar, bar->tabRect(tab).center()};
}

Target TargetAtMenu(const QString& caption) {
  if (auto* open = qobject_cast<QMenu*>(FrontWindow())) {
    for (QAction* action : open->actions()) {
      if (action->text().remove('&') == caption) {
        return {open, open->actionGeometry(action).center()};
      }
    }
  }
  auto* window = qobject_cast<QMainWindow*>(FrontWindow());
  for (QAction* action : window ? window->menuBar()->actions() : QList<QAction*>()) {
    if (action->text().remove('&') != caption) continue;
    return {window->menuBar(), window->menuBar()->actionGeometry(action).center()};
  }
  throw Refused("there is no menu entry " + caption);
}

void Click(const Target& target, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
           QTest::MouseAction action) {
  const QPoint place = Require(target);
  const QPointer<QWindow> window = target.control->window()->windowHandle();
  Hold(window, modifiers, QTest::Press);
  QTest::mouseEvent(QTest::MouseMove, window, Qt::NoButton, modifiers, place);
  QTest::mouseEvent(action, window, button, modifiers, place);
  if (window) Hold(window, modifiers, QTest::Release);
}

void Drag(const Target& from, const Target& to, Qt::KeyboardModifiers modifiers) {
  QWidget* top = from.control->window();
  QWindow* window = top->windowHandle();
  const QPoint press = Require(from);
  const QPoint release = to.control->mapTo(top, to.place);
  Hold(window, modifiers, QTest::Press);
  QTest::mousePress(window, Qt::LeftButton, modifiers, press);
  for (const QPoint& place : {(press + release) / 2, release}) {
    QTest::mouseEvent(QTest::MouseMove, window, Qt::NoButton, modifiers, place);
  }
  QTest::mouseRelease(window, Qt::LeftButton, modifiers, release);
  Hold(window, modifiers, QTest::Release);
}

void DragRow(const QString& list, int from, int to, Qt::KeyboardModifiers modifiers) {
  // Scrolling back and forth ends where both show, if they can.
  for (const int row : {to, from, to}) Require(TargetAtRow(list, row));
  const Target target = TargetAtRow(list, to);
  auto* view = Find<QAbstractItemView>(list, "list");
  const QRect start = view->visualRect(view->model()->index(from, 0));
  Drag({target.control, start.center()}, target, modifiers);
}

void TypeText(QWidget* field, const QString& text) {
  if (!qobject_cast<QLineEdit*>(field)) throw Refused(NameOf(field) + " is not a text field");
  if (!field->hasFocus()) Click({field, field->rect().center()});
  if (!field->hasFocus()) throw Refused(NameOf(field) + " does not take the focus");
  QWindow* window = field->window()->windowHandle();
  QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
  if (text.isEmpty()) QTest::keyClick(window, Qt::Key_Delete);
  for (const char32_t letter : text.toUcs4()) {
    const auto key = letter < 128 ? QChar(letter).toUpper().unicode() : int{Qt::Key_unknown};
    QTest::sendKeyEvent(QTest::Click, window, Qt::Key(key), QString::fromUcs4(&letter, 1), {});
  }
}

bool IsKey(const QString& key) { return KeyOf(key).has_value(); }

void PressKey(QWidget* control, const QString& key) {
  RequireUsable(control);
  const std::optional<Qt::Key> code = KeyOf(key);
  if (!code) throw Refused("there is no key " + key);
  const QKeySequence held(key.chopped(key.section('+', -1).size()) + 'A');
  if (!control->hasFocus() && control->focusPolicy() != Qt::NoFocus) {
    control->setFocus(Qt::TabFocusReason);
  }
  QTest::keyClick(control->window()->windowHandle(), *code, held[0].keyboardModifiers());
}

}  // namespace dtb::replay
