// The standings of a season as a picture.
#pragma once

#include <memory>

#include "windows/season/season_chart.h"

namespace dtb {

inline constexpr int kAllGroups = -1;

// A line for each team: games above .500, over the games of the season. Those of one group of teams
// are lit, or all. Its marks are the games of the team that is chosen, or of all whose lines are
// lit.
class SeasonCourseChart : public SeasonChart {
  Q_OBJECT
 public:
  SeasonCourseChart();

  // A season in its groups, the group whose lines are lit, and the team whose line stands out; -1:
  // none.
  void SetSeason(std::shared_ptr<const SeasonFigures> season,
                 const std::vector<GroupStandings>& groups, int lit, int chosen);

  [[nodiscard]] int marks() const override { return static_cast<int>(points_.size()); }
  [[nodiscard]] QPointF PlaceOf(int mark) const override;
  [[nodiscard]] QString WordsOf(int mark) const override;

 signals:
  // A game of the season that the picture shows.
  void gameChosen(const SeasonGame& game, const SeasonFigures& season);

 protected:
  void Draw(QPainter& painter) override;
  [[nodiscard]] int MarkAt(const QPointF& place) const override;
  void Choose(int mark) override;

 private:
  struct Course {
    int team = 0;
    bool lit = true;
    LineLook look;
    std::vector<CoursePoint> points;
  };
  struct Point {
    int team = 0;
    CoursePoint point;
  };

  void ListPoints();
  [[nodiscard]] PlotScale Scale() const;
  [[nodiscard]] double LabelRoom() const;
  void DrawCourse(QPainter& painter, const PlotScale& scale, const Course& course) const;
  void DrawNames(QPainter& painter, const PlotScale& scale) const;

  std::shared_ptr<const SeasonFigures> season_;
  std::vector<Course> courses_;     // by group, in the order of the standings
  std::vector<std::string> names_;  // of the teams
  std::vector<Point> points_;
  std::vector<MonthMark> months_;
  int lowest_ = 0;
  int highest_ = 0;
  int chosen_ = -1;
};

}  // namespace dtb
