#include "windows/scorecard/card_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "windows/scorecard/paint_drawing.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr double kStep = 1.25;
constexpr double kLargest = 4;
constexpr double kMarginHidden = 22;  // points
constexpr double kBetweenPages = 12;  // points

}  // namespace

CardView::CardView(QWidget* parent) : QAbstractScrollArea(parent) {
  Name(this, "Scorecard_Pages", QStringLiteral("Scorecard"));
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  // Room for bars is not kept free: at the usual size there are none.
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void CardView::Show(std::vector<Drawing> pages, Dress dress, const QString& words) {
  pages_ = std::move(pages);
  dress_ = dress;
  setAccessibleDescription(words);
  FitBars();
  viewport()->update();
}

void CardView::Zoom(int steps) {
  const double before = Scale();
  zoom_ = steps == 0 ? 1 : std::clamp(zoom_ * std::pow(kStep, steps), 1.0, kLargest);
  // The middle of what is seen stays where it is.
  const double grown = Scale() / before;
  const auto middle = [grown](const QScrollBar* bar) {
    return qRound((bar->value() + bar->pageStep() / 2.0) * grown - bar->pageStep() / 2.0);
  };
  const QPoint to(middle(horizontalScrollBar()), middle(verticalScrollBar()));
  FitBars();
  horizontalScrollBar()->setValue(to.x());
  verticalScrollBar()->setValue(to.y());
  viewport()->update();
}

QRectF CardView::SeenOf(const Drawing& page) const {
  const double hidden = dress_ == Dress::Look ? kMarginHidden : 0;
  return QRectF(0, 0, page.width, page.height).adjusted(hidden, hidden, -hidden, -hidden);
}

QSizeF CardView::WholeSize() const {
  QSizeF size;
  for (const Drawing& page : pages_) {
    const QRectF seen = SeenOf(page);
    const double between = size.isNull() ? 0 : kBetweenPages;
    size = {std::max(size.width(), seen.width()), size.height() + seen.height() + between};
  }
  return size;
}

double CardView::Scale() const {
  if (pages_.empty()) return 1;
  const QSizeF page = SeenOf(pages_.front()).size();
  const QSize room = maximumViewportSize();
  const double whole = std::min(room.width() / page.width(), room.height() / page.height());
  return std::max(whole, 0.1) * zoom_;
}

void CardView::FitBars() {
  // What is shown whole has no bar, not even for a moment: Qt would keep its room free.
  const QSizeF whole = WholeSize() * Scale();
  const auto fit = [](QScrollBar* bar, double size, int room, bool fits) {
    bar->setRange(0, fits ? 0 : std::max(0, static_cast<int>(std::floor(size)) - room));
    bar->setPageStep(room);
    bar->setSingleStep(std::max(1, room / 20));
  };
  const bool one = zoom_ <= 1;
  fit(horizontalScrollBar(), whole.width(), viewport()->width(), one);
  fit(verticalScrollBar(), whole.height(), viewport()->height(), one && pages_.size() == 1);
}

void CardView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), look::kSlate);
  const double scale = Scale();
  const QSizeF whole = WholeSize() * scale;
  const double left =
      std::max(0.0, (viewport()->width() - whole.width()) / 2) - horizontalScrollBar()->value();
  double top =
      std::max(0.0, (viewport()->height() - whole.height()) / 2) - verticalScrollBar()->value();
  for (const Drawing& page : pages_) {
    const QRectF seen = SeenOf(page);
    const QRectF place(QPointF(left, top), seen.size() * scale);
    top = place.bottom() + kBetweenPages * scale;
    if (!place.intersects(viewport()->rect())) continue;
    painter.save();
    if (dress_ == Dress::Paper) painter.fillRect(place, Qt::white);
    painter.translate(place.topLeft());
    painter.scale(scale, scale);
    painter.translate(-seen.topLeft());
    PaintDrawing(painter, page, dress_);
    painter.restore();
  }
  if (hasFocus() && byKey_) look::DrawFocus(painter, viewport()->rect(), 0);
}

void CardView::resizeEvent(QResizeEvent* /*event*/) { FitBars(); }

void CardView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  if (event->angleDelta().y() != 0) Zoom(event->angleDelta().y() > 0 ? 1 : -1);
  event->accept();
}

void CardView::mousePressEvent(QMouseEvent* event) {
  const bool canMove = horizontalScrollBar()->maximum() > 0 || verticalScrollBar()->maximum() > 0;
  if (event->button() != Qt::LeftButton || !canMove) return event->ignore();
  dragged_ = event->pos();
  viewport()->setCursor(Qt::ClosedHandCursor);
}

void CardView::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton) || dragged_.isNull()) return event->ignore();
  const QPoint by = event->pos() - dragged_;
  dragged_ = event->pos();
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
  verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
}

void CardView::mouseReleaseEvent(QMouseEvent* /*event*/) {
  dragged_ = {};
  viewport()->unsetCursor();
}

void CardView::focusInEvent(QFocusEvent* event) {
  byKey_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  viewport()->update();
  QAbstractScrollArea::focusInEvent(event);
}

void CardView::focusOutEvent(QFocusEvent* event) {
  viewport()->update();
  QAbstractScrollArea::focusOutEvent(event);
}

}  // namespace dtb
