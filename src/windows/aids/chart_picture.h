// A chart on the screen.
#pragma once

#include <QScrollArea>

namespace dtb {

// Shows a picture: fitted to the window at first, in full size after a click, or in any size
// between by the wheel and the keys + and -. Enter does what a click does, 0 fits it, the arrows
// move it; all other keys are the window's.
class ChartPicture : public QScrollArea {
  Q_OBJECT
 public:
  explicit ChartPicture(QWidget* parent);
  // Shows another picture, fitted. False: the file is missing or no picture, and nothing changes.
  bool Load(const QString& file);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  class Sheet;

  // Pixels of the screen to a pixel of the picture at which the whole picture fits.
  [[nodiscard]] double FittingScale() const;
  // The picture's place under `anchor`, in the viewport, stays there.
  void ShowAt(double scale, const QPointF& anchor);
  void Toggle(const QPointF& anchor);

  Sheet* sheet_;
  double scale_ = 0;  // 0: fitted
  QPoint pressPlace_;
  QPoint pressScroll_;
  bool dragged_ = false;
};

}  // namespace dtb
