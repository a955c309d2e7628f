#include "windows/board/edit_actions.h"

#include "game/history.h"
#include "platform/qt/qt_text.h"
#include "windows/shared/bind.h"

namespace dtb {
namespace {

// A player's name may be of any length, a menu may not; and "&" would underline a letter.
QString Caption(const char* verb, const std::string& step) {
  constexpr qsizetype kLongest = 60;
  QString name = ToQt(step).left(kLongest);
  name.replace(QLatin1Char('&'), QStringLiteral("&&"));
  return (QLatin1String(verb) + QLatin1Char(' ') + name).trimmed();
}

}  // namespace

EditActions::EditActions(Board& board, QObject* parent)
    : QObject(parent), board_(board), undo_(new QAction(this)), redo_(new QAction(this)) {
  undo_->setObjectName(QStringLiteral("mnuUndo"));
  undo_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
  redo_->setObjectName(QStringLiteral("mnuRedo"));
  redo_->setShortcuts(
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
  connect(undo_, &QAction::triggered, this, [this] { board_.history->Undo(board_); });
  connect(redo_, &QAction::triggered, this, [this] { board_.history->Redo(board_); });
  board.history->Observe([this] { Show(); }, WhileItLives(this));
  Show();
}

void EditActions::Show() {
  const History& history = *board_.history;
  undo_->setText(Caption("Undo", history.UndoName()));
  undo_->setEnabled(history.CanUndo());
  redo_->setText(Caption("Redo", history.RedoName()));
  redo_->setEnabled(history.CanRedo());
}

}  // namespace dtb
