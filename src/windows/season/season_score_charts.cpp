#include "windows/season/season_score_charts.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

QColor Between(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

}  // namespace

void SeasonBars::SetBars(std::vector<Bar> bars) {
  bars_ = std::move(bars);
  highest_ = 0;
  QString words;
  for (const Bar& bar : bars_) {
    highest_ = std::max(highest_, bar.value);
    words += bar.words + QLatin1Char('\n');
  }
  SetWords(words);
}

QRectF SeasonBars::Plot() const { return Inside().adjusted(0, type() * 1.2, 0, -type() * 1.2); }

QRectF SeasonBars::BarOf(int mark) const {
  const QRectF plot = Plot();
  const double step = plot.width() / std::max(1, marks());
  const double wide = std::min(step * 0.8, type() * 4);
  const double high =
      highest_ > 0 ? plot.height() * bars_.at(static_cast<std::size_t>(mark)).value / highest_ : 0;
  return {plot.left() + (mark + 0.5) * step - wide / 2, plot.bottom() - high, wide, high};
}

QPointF SeasonBars::PlaceOf(int mark) const {
  const QRectF bar = BarOf(mark);
  return {bar.center().x(), bar.top()};
}

int SeasonBars::MarkAt(const QPointF& place) const {
  const QRectF plot = Plot();
  if (bars_.empty() || !Inside().contains(place)) return -1;
  return std::clamp(static_cast<int>((place.x() - plot.left()) / plot.width() * marks()), 0,
                    marks() - 1);
}

void SeasonBars::Draw(QPainter& painter) {
  if (bars_.empty()) return DrawNote(painter, QStringLiteral("No game is saved yet."));
  const QRectF plot = Plot();
  const double step = plot.width() / marks();
  painter.setFont(SmallFont());
  const auto& metrics = painter.fontMetrics();
  double widestLabel = 0;
  double widestFigure = 0;
  for (const Bar& bar : bars_) {
    widestLabel = std::max<double>(widestLabel, metrics.horizontalAdvance(bar.label));
    widestFigure = std::max<double>(widestFigure, metrics.horizontalAdvance(bar.figure));
  }
  const int each = std::max(1, static_cast<int>(std::ceil((widestLabel + type() * 0.4) / step)));
  const bool figures = widestFigure <= step;
  painter.setPen(QPen(kEdgeBright, 1));
  painter.drawLine(plot.bottomLeft(), plot.bottomRight());
  for (int mark = 0; mark < marks(); ++mark) {
    const Bar& shown = bars_[static_cast<std::size_t>(mark)];
    const QRectF bar = BarOf(mark);
    painter.fillRect(bar, kBarBlue);
    const QRectF column(bar.center().x() - 200, 0, 400, 0);
    painter.setPen(kCreamDim);
    if (mark % each == 0) {
      const double half = metrics.horizontalAdvance(shown.label) / 2.0;
      const double left = std::clamp(bar.center().x() - half, plot.left(),
                                     std::max(plot.left(), plot.right() - 2 * half));
      painter.drawText(QRectF(left, plot.bottom() + 2, 400, type() * 1.2), Qt::AlignTop,
                       shown.label);
    }
    if (!figures || shown.value <= 0) continue;
    painter.setPen(kCream);
    painter.drawText(QRectF(column.left(), bar.top() - type() * 1.2, 400, type() * 1.15),
                     Qt::AlignHCenter | Qt::AlignBottom, shown.figure);
  }
}

SeasonFinals::SeasonFinals()
    : SeasonChart("pic_Finals", QStringLiteral("How often each score came")) {}

void SeasonFinals::SetScores(const SeasonScores& scores) {
  scores_ = scores;
  SetWords(ToQt(FinalsText(scores)));
}

// Across what the winner scored, down what the loser did.
QRectF SeasonFinals::SquareOf(int mark) const {
  const QRectF plot = Inside().adjusted(type() * 2.6, 0, 0, -type() * 2.4);
  const double wide = plot.width() / kSide;
  const double high = plot.height() / kSide;
  const int across = mark % kSide;
  const int down = mark / kSide;
  return {plot.left() + across * wide, plot.top() + (kSide - 1 - down) * high, wide, high};
}

int SeasonFinals::TimesOf(int mark) const {
  return scores_.finals.at(static_cast<std::size_t>(mark % kSide))
      .at(static_cast<std::size_t>(mark / kSide));
}

QString SeasonFinals::WordsOf(int mark) const {
  const int times = TimesOf(mark);
  return ToQt(RunsLabel(mark % kSide, kMostRunsOfScore) + "-" +
              RunsLabel(mark / kSide, kMostRunsOfScore) + ": " +
              (times == 0   ? "never"
               : times == 1 ? "once"
                            : std::to_string(times) + " times"));
}

int SeasonFinals::MarkAt(const QPointF& place) const {
  for (int mark = 0; mark < marks(); ++mark) {
    if (mark / kSide <= mark % kSide && SquareOf(mark).contains(place)) return mark;
  }
  return -1;
}

void SeasonFinals::Draw(QPainter& painter) {
  if (marks() == 0) return DrawNote(painter, QStringLiteral("No game is saved yet."));
  int most = 1;
  for (int mark = 0; mark < marks(); ++mark) most = std::max(most, TimesOf(mark));
  painter.setFont(SmallFont());
  for (int mark = 0; mark < marks(); ++mark) {
    if (mark / kSide > mark % kSide) continue;
    const QRectF square = SquareOf(mark).adjusted(0.5, 0.5, -0.5, -0.5);
    const int times = TimesOf(mark);
    const double share = times == 0 ? 0 : 0.25 + 0.75 * std::sqrt(double(times) / most);
    const QColor ground = Between(QColor(38, 60, 50), kAccent, share);
    painter.fillRect(square, ground);
    if (times == 0) continue;
    const QString figure = QString::number(times);
    if (painter.fontMetrics().horizontalAdvance(figure) > square.width()) continue;
    painter.setPen(InkOn(ground));
    painter.drawText(square, Qt::AlignCenter, figure);
  }
  painter.setPen(kCreamDim);
  for (int runs = 0; runs < kSide; ++runs) {
    const QString label = ToQt(RunsLabel(runs, kMostRunsOfScore));
    const QRectF below = SquareOf(runs);
    painter.drawText(QRectF(below.center().x() - 40, below.bottom() + 1, 80, type() * 1.1),
                     Qt::AlignHCenter | Qt::AlignTop, label);
    const QRectF beside = SquareOf(runs * kSide);
    painter.drawText(QRectF(beside.left() - 80, beside.top(), 80 - type() * 0.4, beside.height()),
                     Qt::AlignRight | Qt::AlignVCenter, label);
  }
  const QRectF inside = Inside();
  painter.drawText(inside, Qt::AlignHCenter | Qt::AlignBottom,
                   QStringLiteral("runs of the winner"));
  painter.save();
  painter.translate(inside.left() + type() * 0.5, inside.center().y());
  painter.rotate(-90);
  painter.drawText(QRectF(-200, -type(), 400, 2 * type()), Qt::AlignCenter,
                   QStringLiteral("runs of the loser"));
  painter.restore();
}

}  // namespace dtb
