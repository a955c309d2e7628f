#include "windows/aids/form3.h"

#include <QDir>
#include <QImageReader>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr double kZoomStep = 1.25;
constexpr double kLargestScale = 4;
// The viewer is lower than the board by 500 units of 1/15 pixel; its picture leaves room for its
// frame.
constexpr int kLower = 33;

}  // namespace

// The picture at its present scale; scaled smoothly, once for each size.
class ChartPicture::Sheet : public QWidget {
 public:
  using QWidget::QWidget;

  void SetImage(const QImage& image) {
    image_ = image;
    scaled_ = {};
  }
  [[nodiscard]] QSize imageSize() const { return image_.size(); }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (pixels.width() >= image_.width()) {
      // Larger than the file: only the part that is seen is worth drawing.
      painter.setClipRect(event->rect());
      painter.drawImage(QRectF(rect()), image_);
      return;
    }
    if (scaled_.size() != pixels) {
      scaled_ = QPixmap::fromImage(
          image_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
      scaled_.setDevicePixelRatio(devicePixelRatioF());
    }
    painter.drawPixmap(0, 0, scaled_);
  }

 private:
  QImage image_;
  QPixmap scaled_;
};

ChartPicture::ChartPicture(QWidget* parent) : QScrollArea(parent), sheet_(new Sheet) {
  Name(this, "WebBrowser1", QStringLiteral("Chart"));
  setFrameShape(QFrame::NoFrame);
  setAlignment(Qt::AlignCenter);
  setWidget(sheet_);
  sheet_->setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::StrongFocus);
}

bool ChartPicture::Load(const QString& file) {
  constexpr qint64 kMostPixels = 100LL * 1000 * 1000;
  QImageReader reader(file);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (!QFileInfo(file).isFile() || qint64{size.width()} * size.height() > kMostPixels) return false;
  const QImage image = reader.read();
  if (image.isNull()) return false;
  sheet_->SetImage(image);
  viewport()->setCursor(Qt::PointingHandCursor);
  return true;
}

double ChartPicture::FittingScale() const {
  const QSizeF picture = sheet_->imageSize();
  if (picture.isEmpty()) return 1;
  const QSizeF room = maximumViewportSize();
  return std::min(room.width() / picture.width(), room.height() / picture.height());
}

void ChartPicture::ShowAt(double scale, const QPointF& anchor) {
  const double smallest = std::min(FittingScale(), 1 / devicePixelRatioF());
  const QPointF place = sheet_->mapFrom(viewport(), anchor.toPoint());
  const double before = sheet_->width() / std::max(1.0, double(sheet_->imageSize().width()));
  scale = std::clamp(scale, smallest, kLargestScale);
  scale_ = scale <= FittingScale() * 1.001 ? 0 : scale;
  const double now = scale_ > 0 ? scale_ : FittingScale();
  sheet_->resize((QSizeF(sheet_->imageSize()) * now).toSize().expandedTo(QSize(1, 1)));
  const QPointF moved = place * (now / before) - anchor;
  horizontalScrollBar()->setValue(qRound(moved.x()));
  verticalScrollBar()->setValue(qRound(moved.y()));
}

void ChartPicture::Toggle(const QPointF& anchor) {
  const double full = 1 / devicePixelRatioF();
  ShowAt(scale_ > 0 ? FittingScale() : std::max(full, FittingScale() * kZoomStep), anchor);
}

void ChartPicture::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  ShowAt(scale_ > 0 ? scale_ : FittingScale(), viewport()->rect().center());
}

void ChartPicture::wheelEvent(QWheelEvent* event) {
  constexpr double kNotch = 120;  // eighths of a degree in one step of a usual wheel
  const double now = scale_ > 0 ? scale_ : FittingScale();
  ShowAt(now * std::pow(kZoomStep, event->angleDelta().y() / kNotch), event->position());
  event->accept();
}

void ChartPicture::keyPressEvent(QKeyEvent* event) {
  const QPointF middle = viewport()->rect().center();
  const double now = scale_ > 0 ? scale_ : FittingScale();
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return ShowAt(now * kZoomStep, middle);
    case Qt::Key_Minus:
      return ShowAt(now / kZoomStep, middle);
    case Qt::Key_0:
      return ShowAt(FittingScale(), middle);
    case Qt::Key_1:
      return ShowAt(1 / devicePixelRatioF(), middle);
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!event->isAutoRepeat()) Toggle(middle);
      return;
    default:
      QScrollArea::keyPressEvent(event);
  }
}

void ChartPicture::mousePressEvent(QMouseEvent* event) {
  pressPlace_ = event->globalPosition().toPoint();
  pressScroll_ = {horizontalScrollBar()->value(), verticalScrollBar()->value()};
  dragged_ = false;
}

void ChartPicture::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  const QPoint by = event->globalPosition().toPoint() - pressPlace_;
  constexpr int kStill = 4;  // a hand that clicks moves by no more pixels
  if (by.manhattanLength() > kStill) dragged_ = true;
  if (!dragged_) return;
  horizontalScrollBar()->setValue(pressScroll_.x() - by.x());
  verticalScrollBar()->setValue(pressScroll_.y() - by.y());
}

void ChartPicture::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && !dragged_) Toggle(event->position());
}

Form3::Form3(const QString& chartName, const QString& file, QWidget* board) : QDialog(board) {
  setObjectName(QStringLiteral("Form3"));
  setWindowTitle(chartName);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  auto* picture = new ChartPicture(this);
  if (picture->Load(file)) {
    picture->setToolTip(
        QStringLiteral("Click: full size and back. Wheel, + and -: zoom. Esc: close."));
    column->addWidget(picture);
    return;
  }
  delete picture;
  auto* page = MakeCaption(
      QStringLiteral(
          "There is no chart on this button yet.\n\nPut a picture of your chart here:\n%1")
          .arg(QDir::toNativeSeparators(file)),
      this, Qt::AlignCenter);
  Name(page, "WebBrowser1", QStringLiteral("There is no chart on this button yet"));
  page->setWordWrap(true);
  page->setTextInteractionFlags(Qt::TextSelectableByMouse);
  page->setFont(look::Font(look::kLarge));
  column->addWidget(page);
}

void Form3::Run(const QString& chartName, const QString& file, QWidget* board) {
  Form3 viewer(chartName, file, board);
  viewer.resize(board->width(), std::max(1, board->height() - kLower));
  viewer.move(board->pos());
  viewer.exec();
}

}  // namespace dtb
