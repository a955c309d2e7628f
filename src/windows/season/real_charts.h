// Pictures of the season on the board beside the real one.
#pragma once

#include "real/both_players.h"
#include "real/team_games.h"
#include "windows/season/season_chart.h"

namespace dtb {

// One team's games above .500 by its own games: the line of the board, and the real one to the end
// of the year. Its marks are the points of both, the board's first.
class RealCourseChart : public SeasonChart {
  Q_OBJECT
 public:
  explicit RealCourseChart(const char* name);

  // Nothing is shown of an empty name but a note.
  void SetTeam(const QString& team, real::BothCourses courses);

  [[nodiscard]] int marks() const override;
  [[nodiscard]] QPointF PlaceOf(int mark) const override;
  [[nodiscard]] QString WordsOf(int mark) const override;

 protected:
  void Draw(QPainter& painter) override;
  [[nodiscard]] int MarkAt(const QPointF& place) const override;

 private:
  // The game and the value of a mark.
  struct Point {
    bool really = false;
    int game = 0;
    int above = 0;
  };
  [[nodiscard]] Point PointOf(int mark) const;
  [[nodiscard]] PlotScale Scale() const;
  void DrawLine(QPainter& painter, const PlotScale& scale, const std::vector<int>& course,
                std::size_t first, std::size_t last, const QPen& pen) const;
  void DrawEnd(QPainter& painter, const PlotScale& scale, int game, int above, const QColor& colour,
               const QString& words, double& free) const;

  QString team_;
  real::BothCourses courses_;
};

// The best players of both worlds in one figure, beside each other. Its marks are the players,
// those of the board first; a mark tells what the player did in the other world.
class RealLeadersChart : public SeasonChart {
  Q_OBJECT
 public:
  explicit RealLeadersChart(SeasonLead lead);

  // `untold`: what is to be known of the real figures; where they are not told at all they are not
  // shown.
  void SetSeasons(std::shared_ptr<const real::BothStandings> seasons, const real::Untold& untold);

  [[nodiscard]] int marks() const override;
  [[nodiscard]] QPointF PlaceOf(int mark) const override { return RowOf(mark).center(); }
  [[nodiscard]] QString WordsOf(int mark) const override;

 protected:
  void Draw(QPainter& painter) override;
  [[nodiscard]] int MarkAt(const QPointF& place) const override;
  void DrawLit(QPainter& painter, int mark) override;

 private:
  static constexpr int kShown = 5;  // of each world
  [[nodiscard]] QRectF RowOf(int mark) const;
  [[nodiscard]] const SeasonLeader& LeaderOf(int mark) const;
  [[nodiscard]] QString FigureOf(const SeasonFigures& season, int player) const;

  SeasonLead lead_;
  std::shared_ptr<const real::BothStandings> seasons_;
  std::array<std::vector<SeasonLeader>, 2> leaders_;  // on the board, really
  QString untold_;
};

}  // namespace dtb
