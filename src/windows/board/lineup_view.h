// A side's line-up as a list on the board.
#pragma once

#include <QAbstractListModel>
#include <QFont>
#include <QListView>

#include "game/batting_order.h"
#include "game/board.h"
#include "teams/lineup_edit.h"
#include "windows/board/next_step.h"
#include "windows/board/runner_drag.h"
#include "windows/shared/line_up_entry.h"

namespace dtb {

class LineupModel : public QAbstractListModel {
  Q_OBJECT
 public:
  LineupModel(Board& board, Side side, const NextStep& next, QObject* parent);
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  // The list changed in any way.
  void Refresh();

  [[nodiscard]] LineUpEntry EntryAt(int row) const;
  [[nodiscard]] QString ShortNameAt(int row) const;
  // How the remarks are shown behind names of this font, in rows of so many pixels: their type, and
  // where their column begins.
  struct Remarks {
    QFont font;
    int left = 0;
  };
  [[nodiscard]] Remarks RemarksIn(const QFont& font, int room) const;

 private:
  // What stands at the right of a row: who is due, and who has no line on the sheet.
  [[nodiscard]] QString NoteOf(int row) const;
  // The row of the first batter, as long as he is the next step.
  [[nodiscard]] bool IsNext(int row) const;

  Board& board_;
  Side side_;
  LineupList& list_;
  const NextStep& next_;
  int shownRows_ = 0;
  mutable Remarks remarks_;  // for the font and the room below
  mutable QFont measured_;
  mutable int measuredRoom_ = -1;  // below 0: not known yet
};

// Turns the gestures of mouse and keyboard into operations on the side's line-up. The row under the
// pointer is read in full in the tool-tip; a right click shows it in a box, or the menu of a player
// of the bench who can come in. Let go on a game piece, his row does the same. While a row is
// dragged a line shows where it goes in. An empty list says what to do.
class LineupView : public QListView {
  Q_OBJECT
 public:
  LineupView(Board& board, Side side, NextStep& next, QWidget* parent);

  void ScrollUpOneLine();

 signals:
  void shown();  // the line-up, after a change

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void ShowState();
  void FitRows();
  [[nodiscard]] bool Drags() const;
  void SetDropsBehind(bool behind);
  void DrawInsertionLine(QPainter& painter) const;
  void DrawHint(QPainter& painter) const;
  [[nodiscard]] std::optional<int> RowAt(const QPoint& place) const;
  // The right button or the menu key at a row: its menu where it has one, else its whole entry.
  void LookAt(std::optional<int> row, const QPoint& place);

  Board& board_;
  Side side_;
  NextStep& next_;
  LineupModel* model_;
  RunnerDrag runner_;
  bool usesKeys_ = false;                   // the focus came by a key, or moved by one
  Qt::MouseButton pressed_ = Qt::NoButton;  // whose release means something here
  bool showing_ = false;                    // what changes comes from the game
  bool dropsBehind_ = false;                // Shift is held during a drag
};

}  // namespace dtb
