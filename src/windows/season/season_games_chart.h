// One team or one player through a season.
#pragma once

#include <memory>

#include "season/season_outings.h"
#include "windows/season/season_chart.h"

namespace dtb {

// Above, a strip of the games: of a team what it won and lost, of a batter his hits, of a pitcher
// his earned runs. Below, the average or the earned run average as it went. Its marks are the
// games.
class SeasonGamesChart : public SeasonChart {
  Q_OBJECT
 public:
  SeasonGamesChart();

  void SetOutings(std::shared_ptr<const SeasonFigures> season, const SeasonSubject& subject,
                  std::vector<SeasonOuting> outings);
  // No games, and why.
  void Clear(const QString& note);

  [[nodiscard]] int marks() const override { return static_cast<int>(outings_.size()); }
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
  [[nodiscard]] QRectF Strip() const;
  [[nodiscard]] PlotScale Scale() const;
  void FindLimits();
  // What the strip shows of an outing.
  [[nodiscard]] double CountOf(const SeasonOuting& outing) const;
  void DrawResults(QPainter& painter, const PlotScale& scale) const;
  void DrawCounts(QPainter& painter, const PlotScale& scale) const;
  void DrawCurve(QPainter& painter, const PlotScale& scale) const;

  std::shared_ptr<const SeasonFigures> season_;
  SeasonSubject subject_;
  QString note_;  // what stands there without games
  std::vector<SeasonOuting> outings_;
  std::vector<MonthMark> months_;
  double lowest_ = 0;  // of the curve
  double highest_ = 1;
};

}  // namespace dtb
