// The pages of a scorecard on the screen.
#pragma once

#include <QAbstractScrollArea>
#include <vector>

#include "record/drawing.h"

namespace dtb {

// Pages below each other, as large as a whole one has room, or larger by steps of Ctrl and the
// wheel, "+" and "-"; "0" shows the whole page again. They are repainted at each size, so that
// they are sharp at any.
class CardView : public QAbstractScrollArea {
  Q_OBJECT
 public:
  explicit CardView(QWidget* parent);

  // `words` are for a screen reader.
  void Show(std::vector<Drawing> pages, Dress dress, const QString& words);
  [[nodiscard]] const std::vector<Drawing>& pages() const { return pages_; }
  // Larger by so many steps, or smaller; 0 steps: a whole page.
  void Zoom(int steps);
  [[nodiscard]] double zoom() const { return zoom_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  // What is seen of a page; on slate its margins are mostly ground as well.
  [[nodiscard]] QRectF SeenOf(const Drawing& page) const;
  [[nodiscard]] QSizeF WholeSize() const;  // of all pages, in points
  [[nodiscard]] double Scale() const;      // pixels to a point
  void FitBars();

  std::vector<Drawing> pages_;
  Dress dress_ = Dress::Look;
  double zoom_ = 1;
  QPoint dragged_;      // the pointer while the page is dragged
  bool byKey_ = false;  // the focus came by Tab: only then it is shown, around the whole card
};

}  // namespace dtb
