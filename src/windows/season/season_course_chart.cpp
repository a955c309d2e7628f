#include "windows/season/season_course_chart.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "season/season_words.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr QColor kDimLine{78, 108, 93};  // of teams that are not chosen
constexpr std::size_t kManyPoints = 150;

}  // namespace

SeasonCourseChart::SeasonCourseChart()
    : SeasonChart("pic_Standings", QStringLiteral("Games above .500")) {}

void SeasonCourseChart::SetSeason(std::shared_ptr<const SeasonFigures> season,
                                  const std::vector<GroupStandings>& groups, int lit, int chosen) {
  season_ = std::move(season);
  courses_.clear();
  names_ = PictureNames(season_->teams);
  lowest_ = 0;
  highest_ = 0;
  chosen_ = chosen;
  std::string words;
  for (std::size_t group = 0; group < groups.size(); ++group) {
    const auto& [name, standings] = groups[group];
    const bool isLit = lit == kAllGroups || lit == static_cast<int>(group);
    for (std::size_t place = 0; place < standings.size(); ++place) {
      const int team = standings[place].team;
      courses_.push_back({.team = team,
                          .lit = isLit,
                          .look = LineLookOf(static_cast<int>(place)),
                          .points = CourseOf(*season_, team)});
      for (const CoursePoint& point : courses_.back().points) {
        lowest_ = std::min(lowest_, point.above);
        highest_ = std::max(highest_, point.above);
      }
    }
    if (!name.empty()) words += name + ".\n";
    words += StandingsText(*season_, standings);
  }
  months_ = MonthMarks(*season_);
  ListPoints();
  SetWords(ToQt(words));
}

void SeasonCourseChart::ListPoints() {
  points_.clear();
  for (const Course& course : courses_) {
    if (chosen_ >= 0 ? course.team != chosen_ : !course.lit) continue;
    for (const CoursePoint& point : course.points) {
      if (point.game > 0) points_.push_back({course.team, point});
    }
  }
}

double SeasonCourseChart::LabelRoom() const { return std::min(width() * 0.26, type() * 12); }

PlotScale SeasonCourseChart::Scale() const {
  const QRectF area = Inside().adjusted(type() * 2.4, type() * 0.4, -LabelRoom(), -type() * 1.1);
  const double most = season_ ? std::max<double>(1, static_cast<double>(season_->games.size())) : 1;
  const double spare = std::max(1.0, (highest_ - lowest_) * 0.04);
  return {area, 0, most, lowest_ - spare, highest_ + spare};
}

QPointF SeasonCourseChart::PlaceOf(int mark) const {
  const PlotScale scale = Scale();
  const CoursePoint& point = points_.at(static_cast<std::size_t>(mark)).point;
  return {scale.X(point.game), scale.Y(point.above)};
}

QString SeasonCourseChart::WordsOf(int mark) const {
  const Point& entry = points_.at(static_cast<std::size_t>(mark));
  return ToQt(CourseText(*season_, entry.team, entry.point));
}

int SeasonCourseChart::MarkAt(const QPointF& place) const {
  const PlotScale scale = Scale();
  double nearest = std::pow(kReach * type(), 2);
  int mark = -1;
  for (std::size_t i = 0; i < points_.size(); ++i) {
    const double across = scale.X(points_[i].point.game) - place.x();
    const double down = scale.Y(points_[i].point.above) - place.y();
    const double distance = across * across + down * down;
    if (distance >= nearest) continue;
    nearest = distance;
    mark = static_cast<int>(i);
  }
  return mark;
}

void SeasonCourseChart::Choose(int mark) {
  const int game = points_.at(static_cast<std::size_t>(mark)).point.game - 1;
  emit gameChosen(season_->games.at(static_cast<std::size_t>(game)), *season_);
}

void SeasonCourseChart::DrawCourse(QPainter& painter, const PlotScale& scale,
                                   const Course& course) const {
  QPolygonF line;
  line.reserve(static_cast<qsizetype>(course.points.size()) + 1);
  for (const CoursePoint& point : LineOf(course.points)) {
    line += QPointF(scale.X(point.game), scale.Y(point.above));
  }
  const bool stands = course.team == chosen_;
  // Lines of a pixel are painted several times as fast as others, which counts where points are
  // many.
  const double thin = course.points.size() > kManyPoints ? 1 : type() / 10;
  QPen pen = LinePen(course.look, stands ? 2.4 * thin : thin);
  if (!stands && (!course.lit || chosen_ >= 0)) pen = QPen(kDimLine, thin);
  painter.setPen(pen);
  painter.drawPolyline(line);
}

// The names of lit lines stand beside their ends, pushed apart; where there is no room for all,
// only the chosen one does.
void SeasonCourseChart::DrawNames(QPainter& painter, const PlotScale& scale) const {
  const double high = painter.fontMetrics().height();
  const QRectF room(scale.area.right(), Inside().top(), LabelRoom(), Inside().height());
  struct Label {
    const Course* course;
    double y;
  };
  std::vector<Label> labels;
  const auto lit = std::ranges::count_if(courses_, &Course::lit);
  const bool all = static_cast<double>(lit) * high <= room.height();
  for (const Course& course : courses_) {
    if ((all && course.lit) || course.team == chosen_) {
      labels.push_back({&course, scale.Y(course.points.back().above)});
    }
  }
  std::ranges::stable_sort(labels, {}, &Label::y);
  double lowest = room.top() + high / 2;
  for (Label& label : labels) {
    label.y = std::max(label.y, lowest);
    lowest = label.y + high;
  }
  double highest = room.bottom() - high / 2;
  for (std::size_t i = labels.size(); i-- > 0;) {
    labels[i].y = std::min(labels[i].y, highest);
    highest = labels[i].y - high;
  }
  const double gap = type() * 0.9;
  for (const Label& label : labels) {
    const CoursePoint& end = label.course->points.back();
    painter.setPen(QPen(kEdgeBright, 1));
    painter.drawLine(QPointF(scale.X(end.game), scale.Y(end.above)),
                     QPointF(room.left() + gap - 2, label.y));
    const bool dim = chosen_ >= 0 && label.course->team != chosen_;
    painter.setPen(dim ? kCreamDim : LineColour(label.course->look.colour));
    const QString figure =
        QStringLiteral(" %1%2").arg(end.above > 0 ? QStringLiteral("+") : QString()).arg(end.above);
    const auto& metrics = painter.fontMetrics();
    const int left = qRound(room.width() - gap) - metrics.horizontalAdvance(figure);
    const QString name =
        metrics.elidedText(ToQt(names_[static_cast<std::size_t>(label.course->team)]),
                           Qt::ElideRight, std::max(10, left));
    painter.drawText(QRectF(room.left() + gap, label.y - high, room.width(), 2 * high),
                     Qt::AlignLeft | Qt::AlignVCenter, name + figure);
  }
}

void SeasonCourseChart::Draw(QPainter& painter) {
  if (courses_.empty()) {
    return DrawNote(painter, QStringLiteral("No game is saved yet.\n\nWhen a game is over, open "
                                            "STATS on the board and press SAVE TO DB."));
  }
  const PlotScale scale = Scale();
  painter.setFont(SmallFont());
  DrawMonths(painter, scale, months_);
  DrawValueLines(painter, scale, AxisMarks(lowest_, highest_, kMostMarks, 1),
                 [](double value) { return QString::number(value); });
  // Faint ones lie below, the best of the others on top, and the chosen one over all.
  const auto level = [this](const Course& course) {
    return course.team == chosen_ ? 2 : course.lit ? 1 : 0;
  };
  for (int drawn = 0; drawn <= 2; ++drawn) {
    for (std::size_t i = courses_.size(); i-- > 0;) {
      if (level(courses_[i]) == drawn) DrawCourse(painter, scale, courses_[i]);
    }
  }
  DrawNames(painter, scale);
}

}  // namespace dtb
