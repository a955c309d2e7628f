// Where a game piece can be let go while the board keeps the bases.
#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "aids/aids_state.h"
#include "game/board.h"
#include "windows/shared/scene.h"

namespace dtb {

// The place of a base or of home plate in the scene, in layout units: 1 to 3, or kHomePlate.
[[nodiscard]] QPointF SpotOf(const AidsState& aids, int place);

// One of the two fields for a runner who is out.
[[nodiscard]] QRectF OutField();

// Where a piece, 0 to 3, stands while the board keeps the bases, with its feet on its base; the
// batter stands beside the plate. A player who is neither stands where he was left.
[[nodiscard]] Place StandOf(const BoardState& board, const AidsState& aids, int piece);

// The bases light up over the park while a piece is dragged, with two fields at the corners for a
// runner who is out. It takes no click away.
class BaseTargets : public QWidget {
  Q_OBJECT
 public:
  BaseTargets(Aids& aids, Scene& scene, QWidget* park);

  // The base, home plate, or kPutOut, to which a pointer at this place of the park leads, or a
  // piece whose feet stand at the other; both in pixels of the park. Nothing: neither is near one.
  [[nodiscard]] std::optional<int> At(const QPoint& pointer, const QPoint& feet) const;

  // Shows the places to which one may go, with this one brighter if it is among them.
  void Light(std::optional<int> place, const std::vector<int>& places);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Aids& aids_;
  Scene& scene_;
  std::optional<int> lit_;
  std::vector<int> places_;
};

}  // namespace dtb
