// The game pieces on the park.
#pragma once

#include "game/board.h"
#include "platform/qt/qt_pictures.h"
#include "windows/board/base_targets.h"
#include "windows/shared/controls.h"
#include "windows/shared/scene.h"

namespace dtb {

// The soft shadow under a piece.
class PieceShadow : public QWidget {
  Q_OBJECT
 public:
  explicit PieceShadow(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Draw(QPixmap& shadow) const;
};

// One game piece: photo or box with initials, and the player's name; a free one is an outline. It
// is dragged with the left button, taken off by a double click, and moved by the arrow keys. Where
// the board keeps the bases it stands on its player's base and goes back there, unless it is let go
// over another one, home plate, or off the field; the arrow keys move from base to base, and one
// that is free is not shown.
class PieceView : public QAbstractButton {
  Q_OBJECT
 public:
  PieceView(Board& board, int piece, QtPictures& pictures, Aids& aids, BaseTargets& targets,
            Scene& scene, QWidget* parent);
  [[nodiscard]] int piece() const { return piece_; }  // 0 to 3
  // A drag over the bases ends without a move; the piece goes back. False: there is none.
  bool CancelDrag();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildPlate();
  void DressPlate(QLabel* plate);
  void Arrange();
  // Panels lie over the pieces, so that no piece takes a control away; but a piece that the person
  // moved by hand, or that could not be seen otherwise, lies over them.
  void Stack();
  [[nodiscard]] bool HiddenByPanels() const;
  void ShowPlate();
  void DrawInitials(QPainter& painter);
  void Nudge(double right, double down);
  // The bases, while the board keeps them.
  void DragOverBases(const QMouseEvent& event);
  void LetGo(const QMouseEvent& event);
  void StepToBase(int by);
  void TellHowToTakeOff();
  [[nodiscard]] GamePiece& Piece() { return board_.state.pieces.at(piece_); }

  Board& board_;
  int piece_;
  Aids& aids_;
  BaseTargets& targets_;
  Scene& scene_;
  PieceShadow* shadow_;
  PictureBox* photo_;
  NameLabel* photoName_;  // over the photo's foot
  NameLabel* plate_;
  QPoint pressPlace_;  // on the screen
  QPoint grip_;        // on the piece
  bool pressed_ = false;
  bool dragged_ = false;
  bool moved_ = false;  // by hand, since it stood on its start place
};

}  // namespace dtb
