// The markers with which a person says where the bases of a ballpark lie.
#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <array>
#include <functional>

#include "aids/aids_state.h"
#include "windows/shared/draggable.h"
#include "windows/shared/scene.h"

namespace dtb {

// One marker: a ring around the place, through which the base is seen, and over it a plate with the
// base's letter. It is dragged with the left button and moved by the arrow keys, and stays inside
// the park as a whole.
class ParkMarker : public QWidget {
  Q_OBJECT
 public:
  // 0 to 3: home plate, first, second, third base.
  ParkMarker(int base, Scene& scene, QWidget* park);

  [[nodiscard]] const ParkPlace& place() const { return place_; }
  void SetPlace(const ParkPlace& place);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool event(QEvent* event) override;

 private:
  // The same, with the whole marker inside the park; in layout units.
  void MoveInside(double x, double y);
  // Where the place lies on the marker itself, to a part of a pixel.
  [[nodiscard]] QPointF Middle() const;

  Scene& scene_;
  QString letter_;
  ParkPlace place_;
  QPointF grip_;        // from the place to where the marker was caught, in pixels
  QPointF pressPlace_;  // on the screen
  bool pressed_ = false;
  bool dragged_ = false;
};

// The four markers and the panel beside them. All else on the board keeps working while they are
// open; another park closes them, since they were moved for the old picture.
class ParkMarkers : public QObject {
  Q_OBJECT
 public:
  ParkMarkers(Aids& aids, Scene& scene, QWidget* park);

  // Shows the markers on the places of this park and gives the first one the focus. Markers that
  // are open already stay where they were dragged.
  void Open();
  [[nodiscard]] bool open() const { return !panel_->isHidden(); }
  // True if the key means something: Esc closes the markers, and the places stay as they were.
  bool Press(const QKeyEvent& event);

 signals:
  // The markers are gone. `kept`: the places in AidsState are those of the markers now.
  void closed(bool kept);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildPanel(Scene& scene, QWidget* park);
  void Done();
  void Cancel();
  void Hide();
  // Over everything else on the park.
  void Raise();

  Aids& aids_;
  DraggablePanel* panel_;
  std::array<ParkMarker*, 4> markers_{};
};

}  // namespace dtb
