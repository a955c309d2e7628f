// The viewer of the charts.
#pragma once

#include <QDialog>
#include <QScrollArea>

namespace dtb {

// Shows a picture: fitted to the window at first, in full size after a click, or in any size
// between by the wheel and the keys + and -. 0 and 1 fit it and show it in full size, the arrows
// move it, Esc closes.
class ChartPicture : public QScrollArea {
  Q_OBJECT
 public:
  explicit ChartPicture(QWidget* parent);
  // False: the file is missing or no picture.
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

class Form3 : public QDialog {
  Q_OBJECT
 public:
  // Opens the viewer over the board and returns when it is closed.
  static void Run(const QString& chartName, const QString& file, QWidget* board);

 private:
  Form3(const QString& chartName, const QString& file, QWidget* board);
};

}  // namespace dtb
