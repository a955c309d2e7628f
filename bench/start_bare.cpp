// A bare window of the toolkit with the same picture at the same size, to its first paint.
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>

#include "bench/first_paint.h"

class BareWindow : public QWidget {
 public:
  BareWindow() : park_(QStringLiteral(DTB_PROGRAM_FOLDER "/Ballparks/DEFAULT1679X974.jpg")) {}

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (scaled_.size() != size()) {
      scaled_ =
          QPixmap::fromImage(park_.scaled(size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    QPainter(this).drawPixmap(0, 0, scaled_);
  }

 private:
  QImage park_;
  QPixmap scaled_;
};

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.menuBar()->addAction(QStringLiteral("Options"));
  auto* park = new BareWindow;
  window.setCentralWidget(park);
  window.resize(1591, 945);
  const FirstPaint firstPaint(park);
  window.show();
  return QApplication::exec();
}
