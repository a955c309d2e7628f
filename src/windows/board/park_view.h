// The picture of the ballpark, on which everything of the board stands.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>
#include <future>

namespace dtb {

// Picture1. Fills itself with the picture, whatever its proportions.
class ParkView : public QWidget {
  Q_OBJECT
 public:
  explicit ParkView(QWidget* parent);

  // A thread of its own decodes the file, while the rest of the board is made; the next painting
  // waits for it. A file that is no picture leaves the park as it is.
  void LoadPark(const QString& file);

 signals:
  // The pointer moved over the park itself.
  void pointerMoved();
  // The file was no picture after all, though its head said so.
  void unreadable(const QString& file);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void TakeDecoded();

  QString file_;  // of the picture that is decoded
  std::future<QImage> decoded_;
  QImage park_;
  QPixmap scaled_;
};

}  // namespace dtb
