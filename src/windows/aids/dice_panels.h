// The two dice rollers that float over the park.
#pragma once

#include <QLabel>
#include <QTimer>

#include "aids/dice.h"
#include "windows/shared/draggable.h"

namespace dtb {

// A six-sided die that shows one face.
class FaceDie : public QWidget {
  Q_OBJECT
 public:
  FaceDie(Field<int>& face, const QColor& colour, const QColor& pips, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Field<int>& face_;
  QColor colour_;
  QColor pips_;
};

// A number on a rounded square of its die's colour.
class NumberPlate : public QLabel {
  Q_OBJECT
 public:
  NumberPlate(Colour ground, Colour figures, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor ground_;
};

// fra_SOMBBdice: three dice with faces and one with twenty sides.
class FaceDicePanel : public DraggablePanel {
  Q_OBJECT
 public:
  FaceDicePanel(Aids& aids, Scene& scene, QWidget* parent);

 private:
  QTimer tmr_sombb_;
};

// fra_BBgumBB: eight numbered dice.
class NumberDicePanel : public DraggablePanel {
  Q_OBJECT
 public:
  NumberDicePanel(Aids& aids, Scene& scene, QWidget* parent);

 private:
  QTimer tmrDice2_;
};

}  // namespace dtb
