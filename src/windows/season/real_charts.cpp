#include "windows/season/real_charts.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "base/text_cell.h"
#include "season/season_words.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr QColor kRealLine{243, 233, 210};
constexpr QColor kRealToCome{116, 134, 122};
constexpr QColor kRealBar{104, 92, 60};
constexpr QColor kReplayedBar{46, 88, 108};

QString Signed(int above) {
  return (above > 0 ? QStringLiteral("+") : QString()) + QString::number(above);
}

}  // namespace

RealCourseChart::RealCourseChart(const char* name)
    : SeasonChart(name, QStringLiteral("Games above .500, replayed and really")) {}

void RealCourseChart::SetTeam(const QString& team, real::BothCourses courses) {
  team_ = team;
  courses_ = std::move(courses);
  const int games = static_cast<int>(courses_.replayed.size()) - 1;
  QString words = QStringLiteral("No team");
  if (!team_.isEmpty()) {
    words = QStringLiteral("%1 after %2 games: %3")
                .arg(team_)
                .arg(games)
                .arg(ToQt(AboveText(courses_.replayed.back())));
    if (games < static_cast<int>(courses_.really.size())) {
      words += QStringLiteral(", really ") + ToQt(AboveText(courses_.really[games]));
    }
  }
  SetWords(words);
}

int RealCourseChart::marks() const {
  if (team_.isEmpty()) return 0;
  return static_cast<int>(courses_.replayed.size() + courses_.really.size());
}

RealCourseChart::Point RealCourseChart::PointOf(int mark) const {
  const int own = static_cast<int>(courses_.replayed.size());
  if (mark < own) return {false, mark, courses_.replayed.at(mark)};
  return {true, mark - own, courses_.really.at(mark - own)};
}

PlotScale RealCourseChart::Scale() const {
  const double labels = std::min(width() * 0.24, type() * 9);
  const QRectF area = Inside().adjusted(type() * 2.4, type() * 0.4, -labels, -type() * 1.3);
  int lowest = 0;
  int highest = 0;
  for (const auto* course : {&courses_.replayed, &courses_.really}) {
    for (const int above : *course) {
      lowest = std::min(lowest, above);
      highest = std::max(highest, above);
    }
  }
  const double spare = std::max(1.0, (highest - lowest) * 0.05);
  const std::size_t games = std::max(courses_.replayed.size(), courses_.really.size());
  return {area, 0, std::max(1.0, double(games) - 1), lowest - spare, highest + spare};
}

QPointF RealCourseChart::PlaceOf(int mark) const {
  const PlotScale scale = Scale();
  const Point point = PointOf(mark);
  return {scale.X(point.game), scale.Y(point.above)};
}

QString RealCourseChart::WordsOf(int mark) const {
  const Point point = PointOf(mark);
  const QString when = point.game == 0 ? QStringLiteral("before the first game")
                                       : QStringLiteral("after game %1").arg(point.game);
  const auto at = [&](const std::vector<int>& course) {
    return point.game < static_cast<int>(course.size()) ? ToQt(AboveText(course.at(point.game)))
                                                        : QStringLiteral("not played yet");
  };
  return QStringLiteral("%1, %2\nReplayed: %3\nReally: %4")
      .arg(team_, when, at(courses_.replayed), at(courses_.really));
}

int RealCourseChart::MarkAt(const QPointF& place) const {
  double nearest = std::pow(kReach * type(), 2);
  int found = -1;
  const PlotScale scale = Scale();
  for (int mark = 0; mark < marks(); ++mark) {
    const Point point = PointOf(mark);
    const double across = scale.X(point.game) - place.x();
    const double down = scale.Y(point.above) - place.y();
    if (across * across + down * down >= nearest) continue;
    nearest = across * across + down * down;
    found = mark;
  }
  return found;
}

void RealCourseChart::DrawLine(QPainter& painter, const PlotScale& scale,
                               const std::vector<int>& course, std::size_t first, std::size_t last,
                               const QPen& pen) const {
  QPolygonF line;
  for (std::size_t game = first; game <= last && game < course.size(); ++game) {
    line += QPointF(scale.X(double(game)), scale.Y(course[game]));
  }
  painter.setPen(pen);
  painter.drawPolyline(line);
}

// The words stand beside the end of a line, below or above those that stand there already.
void RealCourseChart::DrawEnd(QPainter& painter, const PlotScale& scale, int game, int above,
                              const QColor& colour, const QString& words, double& free) const {
  const double high = painter.fontMetrics().height();
  double y = scale.Y(above);
  if (free > 0 && std::abs(y - free) < high) y = y >= free ? free + high : free - high;
  y = std::clamp(y, Inside().top() + high / 2, Inside().bottom() - high / 2);
  free = y;
  const double left = scale.area.right() + type() * 0.9;
  painter.setPen(QPen(colour, 1, Qt::DotLine));
  painter.drawLine(QPointF(scale.X(game), scale.Y(above)), QPointF(left - 2, y));
  painter.setPen(colour);
  const int room = qRound(Inside().right() - left);
  painter.drawText(QRectF(left, y - high, room, 2 * high), Qt::AlignLeft | Qt::AlignVCenter,
                   painter.fontMetrics().elidedText(words, Qt::ElideRight, room));
}

void RealCourseChart::Draw(QPainter& painter) {
  if (team_.isEmpty()) {
    return DrawNote(painter, QStringLiteral("Choose a team on the left."));
  }
  const PlotScale scale = Scale();
  painter.setFont(SmallFont());
  DrawValueLines(painter, scale, AxisMarks(scale.bottom, scale.top, kMostMarks, 1),
                 [](double value) { return QString::number(value); });
  const double high = painter.fontMetrics().height();
  painter.setPen(kCreamDim);
  for (const double game : AxisMarks(0, scale.right, kMostMarks, 1)) {
    const bool first = game == 0;
    const QRectF room(scale.X(game) - (first ? 0 : 4 * high), scale.area.bottom() + 1, 8 * high,
                      high * 1.2);
    painter.drawText(room, first ? Qt::AlignLeft : Qt::AlignHCenter,
                     first ? QStringLiteral("Game") : QString::number(game));
  }
  const std::size_t now = courses_.replayed.size() - 1;
  painter.setPen(QPen(kEdgeBright, 1, Qt::DotLine));
  painter.drawLine(QPointF(scale.X(double(now)), scale.area.top()),
                   QPointF(scale.X(double(now)), scale.area.bottom()));
  const double wide = type() / 7;
  if (!courses_.really.empty()) {
    DrawLine(painter, scale, courses_.really, now, courses_.really.size() - 1,
             QPen(kRealToCome, wide, Qt::SolidLine, Qt::FlatCap));
    DrawLine(painter, scale, courses_.really, 0, now, QPen(kRealLine, wide));
  }
  DrawLine(painter, scale, courses_.replayed, 0, now, QPen(kBarBlue, wide * 1.4));
  painter.setFont(SmallFont(true));
  painter.setPen(kCream);
  const QRectF corner = scale.area.adjusted(type() * 0.5, 0, 0, 0);
  painter.drawText(corner, Qt::AlignLeft | Qt::AlignTop,
                   painter.fontMetrics().elidedText(team_, Qt::ElideRight, qRound(corner.width())));
  painter.setFont(SmallFont());
  double free = -1;
  DrawEnd(painter, scale, static_cast<int>(now), courses_.replayed.back(), kBarBlue,
          QStringLiteral("replayed %1").arg(Signed(courses_.replayed.back())), free);
  if (courses_.really.size() <= now) return;
  DrawEnd(painter, scale, static_cast<int>(now), courses_.really[now], kRealLine,
          QStringLiteral("really %1").arg(Signed(courses_.really[now])), free);
}

RealLeadersChart::RealLeadersChart(SeasonLead lead)
    : SeasonChart(("pic_RealLeaders" + std::to_string(static_cast<int>(lead))).c_str(),
                  QString::fromLatin1(LeadTitle(lead))),
      lead_(lead) {}

void RealLeadersChart::SetSeasons(std::shared_ptr<const real::BothStandings> seasons,
                                  const real::Untold& untold) {
  seasons_ = std::move(seasons);
  untold_ = ToQt(real::UntoldText(untold));
  leaders_[0] = Leaders(seasons_->replayed, lead_, true).first;
  leaders_[1].clear();
  if (untold.games < untold.of) leaders_[1] = Leaders(seasons_->really, lead_, true).first;
  for (auto& leaders : leaders_) {
    if (leaders.size() > kShown) leaders.erase(leaders.begin() + kShown, leaders.end());
  }
  QString words;
  for (int mark = 0; mark < marks(); ++mark) words += WordsOf(mark) + QLatin1Char('\n');
  SetWords(words + untold_);
}

int RealLeadersChart::marks() const {
  return static_cast<int>(leaders_[0].size() + leaders_[1].size());
}

const SeasonLeader& RealLeadersChart::LeaderOf(int mark) const {
  const int own = static_cast<int>(leaders_[0].size());
  return mark < own ? leaders_[0].at(mark) : leaders_[1].at(mark - own);
}

// What he did in one of the worlds.
QString RealLeadersChart::FigureOf(const SeasonFigures& season, int player) const {
  const auto figure = LeaderFigure(season, season.players[player], lead_);
  return figure ? ToQt(*figure) : QStringLiteral("none");
}

QString RealLeadersChart::WordsOf(int mark) const {
  const SeasonLeader& leader = LeaderOf(mark);
  const SeasonPlayer& player = seasons_->replayed.players[leader.player];
  return QStringLiteral("%1, %2\nReplayed: %3\nReally: %4")
      .arg(ToQt(player.name), ToQt(seasons_->replayed.teams[player.team].name),
           FigureOf(seasons_->replayed, leader.player), FigureOf(seasons_->really, leader.player));
}

QRectF RealLeadersChart::RowOf(int mark) const {
  const QRectF inside = Inside();
  const int own = static_cast<int>(leaders_[0].size());
  const double gap = type();
  const double wide = (inside.width() - gap) / 2;
  const bool really = mark >= own;
  // The first line has the two worlds.
  const double high = inside.height() / (kShown + 1);
  const int row = really ? mark - own : mark;
  return {inside.left() + (really ? wide + gap : 0), inside.top() + (row + 1) * high, wide, high};
}

int RealLeadersChart::MarkAt(const QPointF& place) const {
  for (int mark = 0; mark < marks(); ++mark) {
    if (RowOf(mark).contains(place)) return mark;
  }
  return -1;
}

void RealLeadersChart::DrawLit(QPainter& painter, int mark) {
  DrawPlate(painter, RowOf(mark), Qt::transparent, kAccent, 1.5, 3);
  DrawBubble(painter, RowOf(mark).center(), WordsOf(mark));
}

void RealLeadersChart::Draw(QPainter& painter) {
  const QRectF inside = Inside();
  const double high = inside.height() / (kShown + 1);
  const double half = (inside.width() - type()) / 2;
  painter.setFont(SmallFont());
  painter.setPen(kCreamDim);
  painter.drawText(QRectF(inside.left(), inside.top(), half, high), Qt::AlignVCenter,
                   QStringLiteral("Replayed"));
  const QRectF right(inside.left() + half + type(), inside.top(), half, high);
  painter.drawText(right, Qt::AlignVCenter,
                   untold_.isEmpty()
                       ? QStringLiteral("Really")
                       : painter.fontMetrics().elidedText(QStringLiteral("Really. ") + untold_,
                                                          Qt::ElideRight, qRound(half)));
  for (std::size_t world = 0; world < 2; ++world) {
    if (!leaders_.at(world).empty() || (world == 1 && !untold_.isEmpty())) continue;
    painter.drawText(world == 0 ? QRectF(inside.left(), inside.top() + high, half, high)
                                : right.translated(0, high),
                     Qt::AlignVCenter, QStringLiteral("Nobody yet"));
  }
  double longest = 0;
  for (int mark = 0; mark < marks(); ++mark) longest = std::max(longest, LeaderOf(mark).value);
  const int own = static_cast<int>(leaders_[0].size());
  for (int mark = 0; mark < marks(); ++mark) {
    const SeasonLeader& leader = LeaderOf(mark);
    DrawLeader(painter, RowOf(mark), leader, seasons_->replayed, longest,
               mark < own ? kReplayedBar : kRealBar);
  }
}

}  // namespace dtb
