#include "windows/board/focus_keys.h"

#include <QListView>
#include <array>

#include "game/board_state.h"

namespace dtb {
namespace {

// In reading order; what is hidden is passed over.
constexpr std::array kPanels{"List1",       "Frame3",        "List2",       "pb_Res",
                             "fra_Options", "fra_SOMBBdice", "fra_BBgumBB", "fra_ParkPlaces"};

// The panel itself where it is a list, else its first control by the order of Tab.
QWidget* EntranceOf(QWidget* panel) {
  if (qobject_cast<QListView*>(panel) != nullptr) return panel;
  QWidget* control = panel;
  do {
    const bool takes = panel->isAncestorOf(control) && control->isVisible() &&
                       control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) != 0;
    if (takes) return control;
    control = control->nextInFocusChain();
  } while (control != panel);
  return nullptr;
}

}  // namespace

bool FocusKeys::Press(const QKeyEvent& event) {
  const int key = event.key();
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  if (key == Qt::Key_Escape && modifiers == Qt::NoModifier) {
    park_->setFocus(Qt::OtherFocusReason);
    return false;
  }
  if (key == Qt::Key_F6 && (modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier)) {
    NextPanel(modifiers == Qt::ShiftModifier ? -1 : 1);
    return true;
  }
  if (modifiers == Qt::ShiftModifier && key >= Qt::Key_F1 && key < Qt::Key_F1 + kPieces) {
    const QString name = QStringLiteral("pb_Player%1").arg(key - Qt::Key_F1 + 1);
    auto* piece = park_->findChild<QWidget*>(name);
    if (piece != nullptr && piece->isVisible()) piece->setFocus(Qt::TabFocusReason);
    return true;
  }
  if (key == Qt::Key_O && modifiers == Qt::NoModifier && !event.isAutoRepeat()) {
    toggleOptions_();
    EnterOptions();
    return true;
  }
  return false;
}

void FocusKeys::EnterOptions() {
  auto* options = park_->findChild<QWidget*>(QStringLiteral("fra_Options"));
  if (options == nullptr || !options->isVisible()) {
    park_->setFocus(Qt::OtherFocusReason);
  } else if (QWidget* entrance = EntranceOf(options)) {
    entrance->setFocus(Qt::TabFocusReason);
  }
}

void FocusKeys::NextPanel(int by) {
  QList<QWidget*> panels;
  qsizetype now = by > 0 ? -1 : 0;  // outside all of them
  const QWidget* focus = park_->window()->focusWidget();
  for (const char* name : kPanels) {
    auto* panel = park_->findChild<QWidget*>(QLatin1String(name));
    if (panel == nullptr || !panel->isVisible()) continue;
    // A list stands on the panel of its side.
    const bool list = qobject_cast<QListView*>(panel) != nullptr;
    const QWidget* whole = list ? panel->parentWidget() : panel;
    if (focus != nullptr && (whole == focus || whole->isAncestorOf(focus))) now = panels.size();
    panels += panel;
  }
  if (panels.isEmpty()) return;
  const qsizetype next = (now + by + panels.size()) % panels.size();
  if (QWidget* entrance = EntranceOf(panels[next])) entrance->setFocus(Qt::TabFocusReason);
}

}  // namespace dtb
