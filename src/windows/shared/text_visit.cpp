#include "windows/shared/text_visit.h"

#include <QKeyEvent>
#include <QMainWindow>
#include <utility>

namespace dtb {
namespace {

class EscapeLeaves : public QObject {
 public:
  EscapeLeaves(QLineEdit* edit, std::function<bool()> takeBack)
      : QObject(edit), edit_(edit), takeBack_(std::move(takeBack)) {}

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Escape || key->modifiers() != Qt::NoModifier) return false;
    if (!key->isAutoRepeat() && takeBack_()) edit_->clearFocus();
    return true;
  }

 private:
  QLineEdit* edit_;
  std::function<bool()> takeBack_;
};

}  // namespace

void LeaveOnEscape(QLineEdit* edit, std::function<bool()> takeBack) {
  edit->installEventFilter(new EscapeLeaves(edit, std::move(takeBack)));
}

void EndTextVisit(const QWidget* control) {
  QWidget* window = control->window();
  auto* field = qobject_cast<QLineEdit*>(window->focusWidget());
  if (field == nullptr) return;
  // The park, where a key presses nothing.
  if (auto* board = qobject_cast<QMainWindow*>(window)) {
    board->centralWidget()->setFocus(Qt::OtherFocusReason);
  } else {
    field->clearFocus();
  }
}

}  // namespace dtb
