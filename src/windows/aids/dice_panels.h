// The two dice rollers that float over the park.
#pragma once

#include <QLabel>
#include <QTimer>
#include <array>

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

struct FaceDieKind {
  const char* name = "";
  const char* word = "";
  QColor colour;
  QColor pips;
};

// In the order of their faces in AidsState.
inline constexpr std::array<FaceDieKind, kFaceDice> kFaceDiceSet{{
    {"Image100", "Red die", QColor(255, 0, 0), QColor(255, 255, 255)},
    {"Image200", "Green die", QColor(0, 127, 1), QColor(255, 255, 255)},
    {"Image300", "White die", QColor(231, 231, 231), QColor(0, 0, 0)},
}};

// A die with a face, named by its kind and what it shows.
[[nodiscard]] FaceDie* MakeFaceDie(AidsState& state, std::size_t die, QWidget* parent);

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
