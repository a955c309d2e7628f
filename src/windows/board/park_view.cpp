#include "windows/board/park_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScreen>

#include "platform/qt/qt_pictures.h"
#include "windows/shared/look.h"
#include "windows/shared/text_visit.h"

namespace dtb {

ParkView::ParkView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Picture1"));
  setAccessibleName(QStringLiteral("Ballpark"));
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ParkView::LoadPark(const QString& file) {
  TakeDecoded();
  file_ = file;
  const QSize place = (QSizeF(screen()->size()) * devicePixelRatioF()).toSize();
  decoded_ = std::async(std::launch::async, [file, place] {
    return DecodedFor(file, place).convertToFormat(QImage::Format_RGB32);
  });
  update();
}

void ParkView::TakeDecoded() {
  if (!decoded_.valid()) return;
  const QImage park = decoded_.get();
  if (park.isNull()) {
    QMetaObject::invokeMethod(
        this, [this] { emit unreadable(file_); }, Qt::QueuedConnection);
    return;
  }
  park_ = park;
  scaled_ = {};
}

void ParkView::paintEvent(QPaintEvent* event) {
  TakeDecoded();
  QPainter painter(this);
  if (park_.isNull()) {
    painter.fillRect(event->rect(), look::kSlate);
    return;
  }
  const double ratio = devicePixelRatioF();
  const QSize size = (QSizeF(this->size()) * ratio).toSize();
  if (scaled_.size() != size) {
    scaled_ =
        QPixmap::fromImage(park_.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    scaled_.setDevicePixelRatio(ratio);
  }
  const QRectF target = event->rect();
  painter.drawPixmap(target, scaled_, QRectF(target.topLeft() * ratio, target.size() * ratio));
}

void ParkView::mousePressEvent(QMouseEvent* /*event*/) { EndTextVisit(this); }

void ParkView::mouseMoveEvent(QMouseEvent* event) {
  QWidget::mouseMoveEvent(event);
  emit pointerMoved();
}

}  // namespace dtb
