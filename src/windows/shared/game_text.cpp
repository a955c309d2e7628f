#include "windows/shared/game_text.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include "game/history.h"
#include "windows/shared/text_visit.h"

namespace dtb {
namespace {

// What is typed in the game is taken back by the game alone. A text field claims Ctrl + Z for its
// own letters; here it must reach the menu, and where the game has no step it does nothing.
class LeaveUndoToGame : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::ShortcutOverride:
      case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        return key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
      }
      case QEvent::ContextMenu:
        return ShowMenu(*static_cast<QLineEdit*>(watched), *static_cast<QContextMenuEvent*>(event));
      default:
        return false;
    }
  }

 private:
  // The field's usual menu without the field's own undo.
  static bool ShowMenu(QLineEdit& edit, const QContextMenuEvent& event) {
    if (edit.contextMenuPolicy() != Qt::DefaultContextMenu) return false;
    QMenu* menu = edit.createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const char* name : {"edit-undo", "edit-redo"}) {
      delete menu->findChild<QAction*>(QLatin1String(name));
    }
    if (!menu->actions().isEmpty() && menu->actions().first()->isSeparator()) {
      delete menu->actions().first();
    }
    menu->popup(event.globalPos());
    return true;
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
  LeaveOnEscape(edit, [&board, key] {
    // What was typed in this visit is the newest step, unless another gesture came after it.
    if (board.history != nullptr && board.history->Merges(key)) board.history->Undo(board);
    return true;
  });
  QObject::connect(edit, &QLineEdit::editingFinished, edit, [&board] { SealGesture(board); });
}

}  // namespace dtb
