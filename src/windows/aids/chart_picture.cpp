#include "windows/aids/chart_picture.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_pictures.h"
#include "windows/shared/bind.h"

namespace dtb {
namespace {

constexpr double kZoomStep = 1.25;
constexpr double kLargestScale = 4;

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
  const QImage image = DecodedWhole(file);
  if (image.isNull()) return false;
  sheet_->SetImage(image);
  ShowAt(FittingScale(), {});
  sheet_->update();
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
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!event->isAutoRepeat()) Toggle(middle);
      return;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      QScrollArea::keyPressEvent(event);
      return;
    default:
      event->ignore();
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

}  // namespace dtb
