#include "windows/season/season_chart.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "platform/qt/qt_text.h"
#include "season/standings_drawing.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr double kPadding = 0.7;  // in type sizes, as all that follow
constexpr double kTitleRoom = 1.9;

}  // namespace

SeasonChart::SeasonChart(const char* name, const QString& title, QWidget* parent)
    : QWidget(parent), title_(title), type_(kBody) {
  Name(this, name, title);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
}

void SeasonChart::SetType(double pixels) {
  type_ = pixels;
  Repaint();
}

QFont SeasonChart::SmallFont(bool bold) const { return Font(type_ * kSmall / kBody, bold); }

QRectF SeasonChart::Inside() const {
  const double padding = kPadding * type_;
  return QRectF(rect()).adjusted(padding, kTitleRoom * type_, -padding, -padding);
}

void SeasonChart::SetWords(const QString& words) {
  words_ = words;
  setAccessibleDescription(words);
  lit_ = -1;
  Repaint();
}

void SeasonChart::Repaint() {
  picture_ = {};
  update();
}

void SeasonChart::Light(int mark) {
  if (mark >= marks()) mark = -1;
  if (lit_ == mark) return;
  lit_ = mark;
  setCursor(mark < 0 ? Qt::ArrowCursor : Qt::PointingHandCursor);
  setAccessibleDescription(mark < 0 ? words_ : WordsOf(mark) + QLatin1Char('\n') + words_);
  update();
}

void SeasonChart::DrawNote(QPainter& painter, const QString& text) const {
  painter.setFont(Font(type_));
  painter.setPen(kCreamDim);
  painter.drawText(Inside(), Qt::AlignCenter | Qt::TextWordWrap, text);
}

void SeasonChart::DrawBubble(QPainter& painter, const QPointF& at, const QString& words) const {
  painter.setFont(SmallFont());
  const double widest = std::max(80.0, 0.7 * width());
  QStringList lines;
  for (const QString& line : words.split(QLatin1Char('\n'))) {
    lines += painter.fontMetrics().elidedText(line, Qt::ElideMiddle, qRound(widest));
  }
  const QString text = lines.join(QLatin1Char('\n'));
  const QRectF needed = painter.boundingRect(QRectF(0, 0, width(), height()), 0, text);
  QRectF plate(0, 0, needed.width() + type_ * 1.2, needed.height() + type_ * 0.8);
  plate.moveTo(at.x() + type_, at.y() - plate.height() - type_ * 0.6);
  if (plate.right() > width() - 2) plate.moveRight(at.x() - type_);
  plate.moveLeft(std::max(2.0, plate.left()));
  if (plate.top() < 2) plate.moveTop(std::min(at.y() + type_, height() - plate.height() - 2));
  DrawPlate(painter, plate, QColor(250, 246, 235), kAccent, 1.5, 4);
  painter.setPen(kInk);
  painter.drawText(plate, Qt::AlignCenter, text);
}

void SeasonChart::DrawLit(QPainter& painter, int mark) {
  const QPointF place = PlaceOf(mark);
  painter.setPen(QPen(kInk, 1.5));
  painter.setBrush(kAccent);
  painter.drawEllipse(place, type_ * 0.36, type_ * 0.36);
  DrawBubble(painter, place, WordsOf(mark));
}

void SeasonChart::paintEvent(QPaintEvent* /*event*/) {
  const double ratio = devicePixelRatioF();
  if (picture_.isNull() || picture_.devicePixelRatio() != ratio) {
    picture_ = QPixmap(size() * ratio);
    picture_.setDevicePixelRatio(ratio);
    picture_.fill(kSlate);
    QPainter painter(&picture_);
    DrawPlate(painter, rect(), kChartGround, kEdge);
    painter.setFont(Font(type_, true));
    painter.setPen(kCream);
    const QRectF room(kPadding * type_, 0.25 * type_, width() - 2 * kPadding * type_,
                      (kTitleRoom - 0.4) * type_);
    painter.drawText(
        room, Qt::AlignVCenter,
        painter.fontMetrics().elidedText(title_, Qt::ElideRight, qRound(room.width())));
    Draw(painter);
  }
  QPainter painter(this);
  painter.drawPixmap(0, 0, picture_);
  painter.setRenderHint(QPainter::Antialiasing);
  if (lit_ >= 0 && lit_ < marks()) DrawLit(painter, lit_);
  if (hasFocus()) DrawFocus(painter, rect());
}

bool SeasonChart::event(QEvent* event) {
  if (event->type() == QEvent::Leave && !hasFocus()) Light(-1);
  return QWidget::event(event);
}

void SeasonChart::focusOutEvent(QFocusEvent* event) {
  if (!underMouse()) Light(-1);
  QWidget::focusOutEvent(event);
}

void SeasonChart::resizeEvent(QResizeEvent* /*event*/) { Repaint(); }

void SeasonChart::mouseMoveEvent(QMouseEvent* event) { Light(MarkAt(event->position())); }

void SeasonChart::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  Light(MarkAt(event->position()));
  if (lit_ >= 0) Choose(lit_);
}

void SeasonChart::keyPressEvent(QKeyEvent* event) {
  const int last = marks() - 1;
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
      return Light(lit_ < 0 ? last : std::max(0, lit_ - 1));
    case Qt::Key_Right:
    case Qt::Key_Down:
      return Light(std::min(last, lit_ + 1));
    case Qt::Key_Home:
      return Light(std::min(last, 0));
    case Qt::Key_End:
      return Light(last);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (lit_ >= 0 && !event->isAutoRepeat()) Choose(lit_);
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void DrawValueLines(QPainter& painter, const PlotScale& scale, const std::vector<double>& values,
                    const std::function<QString(double)>& textOf) {
  const QRectF& area = scale.area;
  for (const double value : values) {
    const double y = scale.Y(value);
    painter.setPen(QPen(value == 0 ? kEdgeBright : kEdge, 1));
    painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
    painter.setPen(kCreamDim);
    const double high = painter.fontMetrics().height();
    painter.drawText(QRectF(area.left() - 200, y - high, 200 - high / 3, 2 * high),
                     Qt::AlignRight | Qt::AlignVCenter, textOf(value));
  }
}

void DrawMonths(QPainter& painter, const PlotScale& scale, const std::vector<MonthMark>& months) {
  const QRectF& area = scale.area;
  double free = area.left() - 1;
  const double high = painter.fontMetrics().height();
  for (const MonthMark& mark : months) {
    const double x = scale.X(mark.game);
    painter.setPen(QPen(kEdge, 1));
    painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
    const QString text = ToQt(mark.month);
    const double wide = painter.fontMetrics().horizontalAdvance(text);
    if (x < free || x + wide > area.right() + high * 2) continue;
    painter.setPen(kCreamDim);
    painter.drawText(QRectF(x, area.bottom() + 1, wide + 2, high * 1.2), Qt::AlignLeft, text);
    free = x + wide + high / 2;
  }
}

QColor LineColour(int colour) {
  return look::Shade(kLineColoursOnDark.at(static_cast<std::size_t>(colour)));
}

QPen LinePen(const LineLook& look, double width) {
  QPen pen(LineColour(look.colour), width);
  pen.setCapStyle(Qt::FlatCap);
  switch (look.dash) {
    case 0:
      break;
    case 1:
      pen.setDashPattern({6, 3});
      break;
    case 2:
      pen.setDashPattern({2, 2});
      break;
    case 3:
      pen.setDashPattern({8, 3, 2, 3});
      break;
    default:
      pen.setDashPattern({8, 2, 2, 2, 2, 2});
  }
  return pen;
}

// The name over the bar, and the team behind it where there is room for its first letters.
void SeasonChart::DrawLeader(QPainter& painter, const QRectF& place, const SeasonLeader& leader,
                             const SeasonFigures& season, double longest,
                             const QColor& colour) const {
  constexpr QColor kSecondText{206, 206, 188};
  const QRectF row = place.adjusted(0, 1, 0, -1);
  const QRectF room = row.adjusted(0, 0, -kFigureRoom * type(), 0);
  QRectF bar = room;
  bar.setWidth(longest > 0 ? std::max(2.0, room.width() * leader.value / longest) : 2);
  DrawPlate(painter, bar, colour, Qt::transparent, 0, 2);
  // Where rows are low, the tails of letters hang into the next one instead of being cut.
  constexpr int kOneLine = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip;
  painter.setFont(SmallFont());
  const QRectF text = room.adjusted(type() * 0.4, 0, 0, 0);
  const SeasonPlayer& player = season.players[leader.player];
  const auto& metrics = painter.fontMetrics();
  const QString name = metrics.elidedText(ToQt(player.name), Qt::ElideRight, qRound(text.width()));
  painter.setPen(kCream);
  painter.drawText(text, kOneLine, name);
  const double taken = metrics.horizontalAdvance(name) + type() * 0.5;
  const double left = text.width() - taken;
  if (left > type() * 2.5) {
    painter.setPen(kSecondText);
    painter.drawText(
        text.adjusted(taken, 0, 0, 0), kOneLine,
        metrics.elidedText(ToQt(season.teams[player.team].name), Qt::ElideRight, qRound(left)));
  }
  painter.setFont(SmallFont(true));
  painter.setPen(kCream);
  painter.drawText(row, Qt::AlignRight | kOneLine, ToQt(leader.text));
}

}  // namespace dtb
