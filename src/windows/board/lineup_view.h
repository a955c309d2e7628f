// A side's line-up as a list on the board.
#pragma once

#include <QListView>
#include <functional>

#include "game/board.h"
#include "teams/lineup_edit.h"
#include "windows/board/lineup_model.h"
#include "windows/board/runner_drag.h"

namespace dtb {

// Turns the gestures of mouse and keyboard into operations on the side's line-up. The row under the
// pointer is read in full in the tool-tip; a right click shows it in a box, or the menu of a player
// of the bench who can come in. Let go on a game piece, his row does the same. While a row is
// dragged a line shows where it goes in. An empty list says what to do.
class LineupView : public QListView {
  Q_OBJECT
 public:
  LineupView(Board& board, Side side, NextStep& next, QWidget* parent);

  void ScrollUpOneLine();

  // What the tip of a row says of a player besides his entry.
  void SetUse(std::function<QString(const QString& player)> use) { use_ = std::move(use); }

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
  std::function<QString(const QString& player)> use_;
  LineupModel* model_;
  RunnerDrag runner_;
  bool usesKeys_ = false;                   // the focus came by a key, or moved by one
  Qt::MouseButton pressed_ = Qt::NoButton;  // whose release means something here
  bool showing_ = false;                    // what changes comes from the game
  bool dropsBehind_ = false;                // Shift is held during a drag
};

}  // namespace dtb
