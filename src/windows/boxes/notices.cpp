#include "windows/boxes/notices.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QTimer>

#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr int kShownFor = 1500;  // milliseconds
// As many as one gesture makes, and those of the one before.
constexpr std::size_t kMostNotices = 4;
constexpr double kWidest = 760;  // layout units, as all sizes here
constexpr double kRowHeight = 36;
constexpr double kMargin = 20;
constexpr double kGap = 4;
constexpr double kAboveFoot = 12;
constexpr double kRightOfPlate = 0.535;  // of the board's width

}  // namespace

Notices::Notices(QWidget* board) : QWidget(board) {
  setObjectName(QStringLiteral("Notices"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  board->installEventFilter(this);
  hide();
}

void Notices::Show(const QString& message, const QString& counted, double scale, Stand stand) {
  scale_ = scale;
  stand_ = stand;
  const int number = ++lastNumber_;
  notices_.push_front({number, message, counted});
  while (notices_.size() > kMostNotices) notices_.pop_back();
  QTimer::singleShot(kShownFor, this, [this, number] { Drop(number); });
  Arrange();
  show();
  raise();
  setAccessibleName((message + QLatin1Char(' ') + counted).trimmed());
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

QStringList Notices::shown() const {
  QStringList texts;
  for (const Notice& notice : notices_) {
    texts += (notice.message + QLatin1Char(' ') + notice.counted).trimmed();
  }
  return texts;
}

void Notices::Drop(int number) {
  std::erase_if(notices_, [number](const Notice& notice) { return notice.number == number; });
  if (notices_.empty()) hide();
  Arrange();
}

void Notices::Arrange() {
  const QSize board = parentWidget()->size();
  const bool right = stand_ == Stand::Right;
  const int least = right ? qRound(kRightOfPlate * board.width()) : 0;
  const int width = std::min(qRound(kWidest * scale_), board.width() - least);
  const int height = qRound((kRowHeight + kGap) * scale_ * static_cast<double>(notices_.size()));
  setGeometry(right ? least : (board.width() - width) / 2,
              board.height() - height - qRound(kAboveFoot * scale_), width, height);
  update();
}

void Notices::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const auto units = [this](double length) { return length * scale_; };
  painter.setFont(Font(kLarge * scale_));
  const QFontMetricsF metrics(painter.font());
  double top = 0;
  for (const Notice& notice : notices_) {
    const QString gap = notice.counted.isEmpty() ? QString() : QStringLiteral("  ");
    const double message = metrics.horizontalAdvance(notice.message + gap);
    const double room = width() - 2 * units(kMargin) - message;
    const QString counted = metrics.elidedText(notice.counted, Qt::ElideRight, room);
    const double plate = message + metrics.horizontalAdvance(counted) + 2 * units(kMargin);
    const QRectF row(stand_ == Stand::Right ? 0 : (width() - plate) / 2, top, plate,
                     units(kRowHeight));
    DrawPlate(painter, row, kSlate, &notice == &notices_.front() ? kAccent : kEdgeBright, 1);
    QRectF text = row.adjusted(units(kMargin), 0, 0, 0);
    painter.setPen(kCream);
    painter.drawText(text, Qt::AlignVCenter, notice.message);
    text.adjust(message, 0, 0, 0);
    painter.setPen(kAccent);
    painter.drawText(text, Qt::AlignVCenter, counted);
    top += units(kRowHeight + kGap);
  }
}

bool Notices::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && watched == parent()) Arrange();
  return QWidget::eventFilter(watched, event);
}

}  // namespace dtb
