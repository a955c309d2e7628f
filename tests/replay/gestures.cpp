#include "replay/gestures.h"

#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMetaEnum>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QWindow>

#include "windows/message_box.h"

namespace dtb::replay {
namespace {

QString NameOf(const QWidget* widget) {
  while (widget->parentWidget() != nullptr &&
         (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_"))) {
    widget = widget->parentWidget();
  }
  return widget->objectName();
}

void Require(const Target& target) {
  const QWidget* control = target.control;
  const QString name = NameOf(control);
  if (!control->isVisible()) throw Refused(name + " is hidden");
  if (!control->isEnabled()) throw Refused(name + " is disabled");
  const QWidget* window = control->window();
  if (window != FrontWindow()) throw Refused(name + " is not in the front window");
  const QPoint place = control->mapTo(window, target.place);
  const QWidget* hit = window->childAt(place);
  if (!control->rect().contains(target.place) || !window->rect().contains(place)) {
    throw Refused(QString("%1 does not show the place %2,%3")
                      .arg(name)
                      .arg(target.place.x())
                      .arg(target.place.y()));
  }
  if (hit == nullptr) hit = window;
  if (hit != control && !control->isAncestorOf(hit)) {
    throw Refused(name + " is covered by " + NameOf(hit));
  }
}

// Holds the modifier keys down for as long as it lives.
class HeldKeys {
 public:
  HeldKeys(QWindow* window, Qt::KeyboardModifiers modifiers) : window_(window) {
    if (modifiers.testFlag(Qt::ControlModifier)) Press(Qt::Key_Control);
    if (modifiers.testFlag(Qt::ShiftModifier)) Press(Qt::Key_Shift);
  }
  ~HeldKeys() {
    for (const Qt::Key key : keys_) {
      if (window_) QTest::keyRelease(window_, key);
    }
  }

 private:
  void Press(Qt::Key key) {
    QTest::keyPress(window_, key);
    keys_.append(key);
  }

  QPointer<QWindow> window_;
  QList<Qt::Key> keys_;
};

template <class Widget>
Widget* Find(const QString& name, const char* kind) {
  auto* found = qobject_cast<Widget*>(FindControl(name));
  if (found == nullptr) throw Refused(QString("%1 is no %2").arg(name, kind));
  return found;
}

Target TargetAtIndex(QAbstractItemView* view, const QModelIndex& index) {
  if (!index.isValid()) throw Refused(view->objectName() + " has no such row or cell");
  view->scrollTo(index);
  return {view->viewport(), view->visualRect(index).center()};
}

QPoint PlaceInWindow(const Target& target) {
  return target.control->mapTo(target.control->window(), target.place);
}

}  // namespace

QWidget* FrontWindow() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (qobject_cast<QMainWindow*>(window) != nullptr && window->isVisible()) return window;
  }
  return nullptr;
}

QWidget* FindControl(QString name) {
  QWidget* front = FrontWindow();
  if (front == nullptr) throw Refused("no window is open");
  name.replace('(', '[').replace(')', ']');
  const qsizetype dot = name.indexOf('.');
  if (dot >= 0 && front->objectName() != name.left(dot)) {
    throw Refused(name.left(dot) + " is not the front window");
  }
  name = name.mid(dot + 1);
  if (front->objectName() == name) return front;
  for (const QWidget* place : {static_cast<QWidget*>(MessageBox::Open()), front}) {
    if (place == nullptr) continue;
    if (place->objectName() == name) return const_cast<QWidget*>(place);
    // A window's children include other windows, whose controls may have the same names.
    for (QWidget* control : place->findChildren<QWidget*>(name)) {
      if (control->window() == front) return control;
    }
  }
  throw Refused("there is no " + name + " in " + front->objectName());
}

Target TargetAt(const QString& nameAndPlace) {
  QWidget* control = FindControl(nameAndPlace.section('@', 0, 0));
  QPoint place = control->rect().center();
  // A check box takes clicks on its mark and caption only, which lie at its left.
  const bool mark = qobject_cast<QCheckBox*>(control) || qobject_cast<QRadioButton*>(control);
  if (mark) place.setX(std::min(place.x(), 10));
  if (nameAndPlace.contains('@')) {
    bool xGiven = false;
    bool yGiven = false;
    const QString given = nameAndPlace.section('@', 1);
    place = {given.section(',', 0, 0).toInt(&xGiven), given.section(',', 1).toInt(&yGiven)};
    if (!xGiven || !yGiven) throw Refused(given + " is no place");
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
  if (row != 0) return TargetAtIndex(view, view->model()->index(row - 1, column));
  QHeaderView* header = view->horizontalHeader();
  const int middle = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
  return {header->viewport(), {middle, header->height() / 2}};
}

Target TargetAtTab(const QString& name, int tab) {
  QWidget* control = FindControl(name);
  const auto* tabs = qobject_cast<QTabWidget*>(control);
  auto* bar = tabs != nullptr ? tabs->tabBar() : qobject_cast<QTabBar*>(control);
  if (bar == nullptr || tab >= bar->count()) throw Refused(name + " has no such tab");
  return {bar, bar->tabRect(tab).center()};
}

Target TargetAtMenu(const QString& caption) {
  auto* window = qobject_cast<QMainWindow*>(FrontWindow());
  if (window == nullptr) throw Refused("the front window has no menu bar");
  for (QAction* action : window->menuBar()->actions()) {
    if (action->text().remove('&') != caption) continue;
    return {window->menuBar(), window->menuBar()->actionGeometry(action).center()};
  }
  throw Refused("there is no menu entry " + caption);
}

void Click(const Target& target, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
           Times times) {
  Require(target);
  QWindow* window = target.control->window()->windowHandle();
  const QPoint place = PlaceInWindow(target);
  const HeldKeys held(window, modifiers);
  const auto action = times == Times::Twice ? QTest::MouseDClick : QTest::MouseClick;
  QTest::mouseEvent(QTest::MouseMove, window, Qt::NoButton, modifiers, place);
  QTest::mouseEvent(action, window, button, modifiers, place);
}

void DoubleClick(const Target& target, Qt::KeyboardModifiers modifiers) {
  Click(target, Qt::LeftButton, modifiers, Times::Twice);
}

void Drag(const Target& start, const Target& end, Qt::KeyboardModifiers modifiers) {
  QWindow* window = end.control->window()->windowHandle();
  const HeldKeys held(window, modifiers);
  const auto mouse = [&](QTest::MouseAction action, const Target& target) {
    const auto button = action == QTest::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QTest::mouseEvent(action, window, button, modifiers, PlaceInWindow(target));
  };
  mouse(QTest::MousePress, start);
  mouse(QTest::MouseMove, {start.control, (start.place + end.place) / 2});
  mouse(QTest::MouseMove, end);
  mouse(QTest::MouseRelease, end);
}

void DragRow(const QString& list, int from, int to, Qt::KeyboardModifiers modifiers) {
  // Both rows have to show at the same time.
  for (const int row : {to, from, to}) Require(TargetAtRow(list, row));
  const Target end = TargetAtRow(list, to);
  const auto* view = Find<QAbstractItemView>(list, "list");
  const Target start{end.control, view->visualRect(view->model()->index(from, 0)).center()};
  Require(start);
  Drag(start, end, modifiers);
}

void TypeText(QWidget* field, const QString& text) {
  if (qobject_cast<QLineEdit*>(field) == nullptr) {
    throw Refused(NameOf(field) + " is no text field");
  }
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

void PressKey(QWidget* control, const QString& key) {
  if (!control->isVisible()) throw Refused(NameOf(control) + " is hidden");
  if (!control->isEnabled()) throw Refused(NameOf(control) + " is disabled");
  const QString name = key.section('+', -1);
  const QKeySequence other(name);
  int code = QMetaEnum::fromType<Qt::Key>().keyToValue(("Key_" + name).toLatin1());
  if (code < 0 && !other.isEmpty()) code = other[0].key();
  if (code < 0 || code == Qt::Key_unknown) throw Refused("there is no key " + key);
  const QKeySequence held(key.left(key.size() - name.size()) + 'A');
  if (!control->hasFocus() && control->focusPolicy() != Qt::NoFocus) {
    control->setFocus(Qt::TabFocusReason);
  }
  QTest::keyClick(control->window()->windowHandle(), Qt::Key(code), held[0].keyboardModifiers());
}

void CloseWindow(QWidget* window) {
  if (window == nullptr) throw Refused("no window is open");
  window->windowHandle()->close();
}

}  // namespace dtb::replay
