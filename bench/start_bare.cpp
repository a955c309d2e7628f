// A bare window of Qt with the same picture at the same size, to its first paint. The
// picture is read whole, as toolkits do; with the word "halved" it is decoded as the board decodes
// it.
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>

#include "bench/first_paint.h"
#include "platform/qt/qt_pictures.h"

class BareWindow : public QWidget {
 public:
  explicit BareWindow(bool halved) {
    const auto file = QStringLiteral(DTB_PROGRAM_FOLDER "/Ballparks/DEFAULT1679X974.jpg");
    const QSize place = (QSizeF(screen()->size()) * devicePixelRatioF()).toSize();
    park_ = halved ? dtb::DecodedFor(file, place) : QImage(file);
  }

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
  auto* park = new BareWindow(argc == 2);
  window.setCentralWidget(park);
  window.resize(1591, 945);
  const FirstPaint firstPaint(park);
  window.show();
  return QApplication::exec();
}
