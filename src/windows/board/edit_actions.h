// "Undo" and "Redo", for all windows in which a game is played.
#pragma once

#include <QAction>

#include "game/board.h"

namespace dtb {

class EditActions : public QObject {
  Q_OBJECT
 public:
  EditActions(Board& board, QObject* parent);

  [[nodiscard]] QAction* undo() const { return undo_; }
  [[nodiscard]] QAction* redo() const { return redo_; }

 private:
  void Show();

  Board& board_;
  QAction* undo_;
  QAction* redo_;
};

}  // namespace dtb
