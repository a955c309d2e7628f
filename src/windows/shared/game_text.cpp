#include "windows/shared/game_text.h"

#include <QKeyEvent>

#include "game/history.h"

namespace dtb {
namespace {

// A text field claims Ctrl + Z for its own letters; here it must reach the menu.
class LeaveUndoToGame : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    return key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
  }
};

}  // namespace

void BindGameText(QLineEdit* edit, Field<std::string>& field, Board& board, const char* name) {
  FollowText(edit, field);
  edit->installEventFilter(new LeaveUndoToGame(edit));
  const std::string key = "text of " + FromQt(edit->objectName());
  QObject::connect(edit, &QLineEdit::textEdited, edit,
                   [&field, &board, name, key](const QString& text) {
                     const Gesture gesture(board, name, key);
                     field.Set(FromQt(text));
                   });
  QObject::connect(edit, &QLineEdit::editingFinished, edit, [&board] { SealGesture(board); });
}

}  // namespace dtb
