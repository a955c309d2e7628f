// A row of a line-up on its way to a game piece, and the menu that does the same.
#pragma once

#include <QLabel>
#include <QPointer>
#include <QWidget>
#include <optional>

#include "game/board.h"
#include "game/memento.h"
#include "windows/board/base_targets.h"

namespace dtb {

// A reserve is let go on the piece of the player for whom he comes in; where the board keeps the
// bases, any player on an empty base, as extra innings begin with. Beside the pointer stands what
// would come of it.
class RunnerDrag {
 public:
  RunnerDrag(Board& board, Side side, QWidget* list);

  // The left button goes down on a row, which is not chosen yet.
  void Begin(int row);
  // The pointer is at a place of the screen. True: over a game piece or a base.
  bool Move(const QPoint& place);
  // The button goes up there. True: on a game piece or a base, and the gesture is made.
  bool End(const QPoint& place);

  // The menu of a row, at a place of the screen: the whole entry, and for whom the player can come
  // in. Nothing: there is nobody, and no menu is shown. True: the whole entry is wanted.
  [[nodiscard]] std::optional<bool> ShowMenu(int row, const QPoint& place);

 private:
  [[nodiscard]] std::optional<int> PieceUnder(const QPoint& place) const;
  // The base there, 1 to 3, on which the player of the row can be put.
  [[nodiscard]] std::optional<int> BaseUnder(const QPoint& place) const;
  // "Varrow begins on second", or why he cannot.
  [[nodiscard]] std::string WordsOnBase(int base) const;
  [[nodiscard]] BaseTargets* Targets() const;
  void HideAll();
  void ShowTag(const QString& words, const QPoint& place);

  Board& board_;
  Side side_;
  QWidget* list_;
  std::optional<int> row_;
  std::optional<GameMemento>
      before_;            // the game before the press; only where a base can be its end
  QPointer<QLabel> tag_;  // none before the first drag
};

}  // namespace dtb
