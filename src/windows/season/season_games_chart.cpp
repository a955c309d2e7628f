#include "windows/season/season_games_chart.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "base/words.h"
#include "database/saved_games.h"
#include "season/season_words.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr double kStripShare = 0.3;
constexpr int kMostGameMarks = 5;

}  // namespace

SeasonGamesChart::SeasonGamesChart()
    : SeasonChart("pic_Games", QStringLiteral("Game by game")),
      note_(QStringLiteral("Choose a team or a player on the left.")) {}

void SeasonGamesChart::Clear(const QString& note) {
  outings_.clear();
  note_ = note;
  SetWords(note);
}

void SeasonGamesChart::SetOutings(std::shared_ptr<const SeasonFigures> season,
                                  const SeasonSubject& subject, std::vector<SeasonOuting> outings) {
  season_ = std::move(season);
  subject_ = subject;
  outings_ = std::move(outings);
  months_.clear();
  for (std::size_t i = 0; i < outings_.size(); ++i) {
    const std::string month = MonthText(outings_[i].time);
    if (months_.empty() || months_.back().month != month) {
      months_.push_back({static_cast<int>(i), month});
    }
  }
  FindLimits();
  const bool pitching = subject_.role == SeasonRole::Pitching;
  QString words;
  if (!outings_.empty()) {
    words = ToQt((pitching ? "Earned run average " : "Average ") + RateText(outings_.back().total) +
                 " in " + Counted(static_cast<int>(outings_.size()), "game") + ".");
  }
  SetWords(words);
}

// The first games, whose rates leap, do not flatten the rest: there the curve may leave the
// picture.
void SeasonGamesChart::FindLimits() {
  constexpr std::size_t kSettled = 8;  // a share of the games
  const double least = subject_.role == SeasonRole::Pitching ? 0.5 : 0.05;
  std::optional<double> lowest;
  std::optional<double> highest;
  for (std::size_t i = outings_.size() / kSettled; i < outings_.size(); ++i) {
    const auto rate = RateOf(outings_[i].total);
    if (!rate) continue;
    lowest = std::min(rate->value(), lowest.value_or(rate->value()));
    highest = std::max(rate->value(), highest.value_or(rate->value()));
  }
  const double spare = std::max(least, 0.25 * (highest.value_or(0) - lowest.value_or(0)));
  lowest_ = std::max(0.0, lowest.value_or(0) - spare);
  highest_ = highest.value_or(0) + spare;
}

QRectF SeasonGamesChart::Strip() const {
  QRectF strip = Inside().adjusted(type() * 2.8, type() * 0.2, -type(), 0);
  strip.setHeight(strip.height() * kStripShare);
  return strip;
}

PlotScale SeasonGamesChart::Scale() const {
  const QRectF strip = Strip();
  const QRectF area(strip.left(), strip.bottom() + type() * 0.9, strip.width(),
                    std::max(1.0, Inside().bottom() - strip.bottom() - type() * 2.1));
  return {area, 0, std::max<double>(1, marks()), lowest_, highest_};
}

QPointF SeasonGamesChart::PlaceOf(int mark) const {
  const PlotScale scale = Scale();
  const SeasonOuting& outing = outings_.at(static_cast<std::size_t>(mark));
  const double rate = RateOf(outing.total).value_or(Quotient{}).value();
  return {scale.X(mark + 0.5), scale.Y(std::clamp(rate, lowest_, highest_))};
}

QString SeasonGamesChart::WordsOf(int mark) const {
  const SeasonOuting& outing = outings_.at(static_cast<std::size_t>(mark));
  std::string text = DayAndTimeText(outing.time);
  text += "\n" + (outing.game < 0 ? "GameID " + outing.id + ", without line score"
                                  : ScoreText(*season_, season_->games[outing.game]));
  text += "\n" + OutingText(outing.line) + "; so far " + RateText(outing.total);
  return ToQt(text);
}

int SeasonGamesChart::MarkAt(const QPointF& place) const {
  const PlotScale scale = Scale();
  const bool inside = place.x() >= scale.area.left() && place.x() < scale.area.right() &&
                      place.y() >= Strip().top() && place.y() < Inside().bottom();
  if (!inside || outings_.empty()) return -1;
  const double share = (place.x() - scale.area.left()) / scale.area.width();
  return std::clamp(static_cast<int>(share * marks()), 0, marks() - 1);
}

void SeasonGamesChart::Choose(int mark) {
  const int game = outings_.at(static_cast<std::size_t>(mark)).game;
  if (game >= 0) emit gameChosen(season_->games.at(static_cast<std::size_t>(game)), *season_);
}

double SeasonGamesChart::CountOf(const SeasonOuting& outing) const {
  if (const auto* batting = std::get_if<BattingTotals>(&outing.line)) return batting->hits;
  return std::get<PitchingTotals>(outing.line).earnedRuns;
}

// What was won stands above the middle, what was lost below it, ties on it.
void SeasonGamesChart::DrawResults(QPainter& painter, const PlotScale& scale) const {
  const QRectF strip = Strip();
  const double middle = strip.center().y();
  const double step = scale.area.width() / marks();
  const double wide = std::min(std::max(1.0, step - (step > 4 ? 1 : 0)), type() * 1.5);
  painter.setPen(QPen(kEdgeBright, 1));
  painter.drawLine(QPointF(strip.left(), middle), QPointF(strip.right(), middle));
  for (int mark = 0; mark < marks(); ++mark) {
    const int result = ResultOf(*season_, subject_.team, outings_[static_cast<std::size_t>(mark)]);
    QRectF cell(scale.X(mark + 0.5) - wide / 2, middle - 2, wide, 4);
    if (result > 0) cell = QRectF(cell.left(), strip.top() + 2, wide, middle - strip.top() - 3);
    if (result < 0) cell = QRectF(cell.left(), middle + 1, wide, strip.bottom() - middle - 3);
    painter.fillRect(cell, result > 0 ? kWonBlue : result < 0 ? kLostOrange : kCreamDim);
  }
  painter.setPen(kCreamDim);
  const double room = strip.left() - Inside().left() - type() * 0.4;
  painter.drawText(QRectF(Inside().left(), strip.top(), room, strip.height() / 2),
                   Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("won"));
  painter.drawText(QRectF(Inside().left(), middle, room, strip.height() / 2),
                   Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("lost"));
}

void SeasonGamesChart::DrawCounts(QPainter& painter, const PlotScale& scale) const {
  const QRectF strip = Strip();
  double most = 1;
  for (const SeasonOuting& outing : outings_) most = std::max(most, CountOf(outing));
  const double step = scale.area.width() / marks();
  const double wide = std::min(std::max(1.0, step - (step > 4 ? 1 : 0)), type() * 1.5);
  const bool batting = subject_.role == SeasonRole::Batting;
  for (int mark = 0; mark < marks(); ++mark) {
    const SeasonOuting& outing = outings_[static_cast<std::size_t>(mark)];
    const double high = std::max(1.5, CountOf(outing) / most * (strip.height() - 2));
    const QRectF bar(scale.X(mark + 0.5) - wide / 2, strip.bottom() - high, wide, high);
    painter.fillRect(bar, CountOf(outing) > 0 ? (batting ? kBarBlue : kLostOrange) : kCreamDim);
  }
  painter.setPen(kCreamDim);
  const QRectF room(Inside().left(), strip.top(), strip.left() - Inside().left() - type() * 0.4,
                    strip.height());
  painter.drawText(room, Qt::AlignRight | Qt::AlignTop, QString::number(most));
  painter.drawText(room, Qt::AlignRight | Qt::AlignBottom,
                   batting ? QStringLiteral("hits") : QStringLiteral("ER"));
}

void SeasonGamesChart::DrawCurve(QPainter& painter, const PlotScale& scale) const {
  QPolygonF line;
  for (int mark = 0; mark < marks(); ++mark) {
    const auto rate = RateOf(outings_[static_cast<std::size_t>(mark)].total);
    if (rate) line += QPointF(scale.X(mark + 0.5), scale.Y(rate->value()));
  }
  painter.setPen(QPen(kAccent, type() / 7));
  painter.setClipRect(scale.area.adjusted(0, -1, type(), 1));
  painter.drawPolyline(line);
  if (line.isEmpty()) return;
  painter.setPen(QPen(kInk, 1));
  painter.setBrush(kAccent);
  painter.drawEllipse(line.back(), type() * 0.28, type() * 0.28);
}

void SeasonGamesChart::Draw(QPainter& painter) {
  if (outings_.empty()) {
    return DrawNote(painter, note_);
  }
  const PlotScale scale = Scale();
  const bool batting = subject_.role == SeasonRole::Batting;
  painter.setFont(SmallFont());
  subject_.wholeTeam ? DrawResults(painter, scale) : DrawCounts(painter, scale);
  DrawMonths(painter, scale, months_);
  DrawValueLines(
      painter, scale, AxisMarks(lowest_, highest_, kMostGameMarks), [batting](double value) {
        return ToQt(batting ? AverageText(Quotient{value}) : EarnedRunText(Quotient{value}));
      });
  DrawCurve(painter, scale);
}

}  // namespace dtb
