// The ten best players of a season in one figure.
#pragma once

#include <memory>

#include "season/season_leaders.h"
#include "windows/season/season_chart.h"

namespace dtb {

// A bar for each player, with his name, his team and the figure. Its marks are the players.
class SeasonLeaderBoard : public SeasonChart {
  Q_OBJECT
 public:
  explicit SeasonLeaderBoard(SeasonLead lead);

  void SetSeason(std::shared_ptr<const SeasonFigures> season, bool qualified);

  [[nodiscard]] int marks() const override { return static_cast<int>(leaders_.size()); }
  [[nodiscard]] QPointF PlaceOf(int mark) const override { return RowOf(mark).center(); }
  [[nodiscard]] QString WordsOf(int mark) const override;

 signals:
  void playerChosen(int player, SeasonRole role);

 protected:
  void Draw(QPainter& painter) override;
  [[nodiscard]] int MarkAt(const QPointF& place) const override;
  void Choose(int mark) override;
  void DrawLit(QPainter& painter, int mark) override;

 private:
  [[nodiscard]] QRectF RowOf(int mark) const;
  [[nodiscard]] QString NameOf(const SeasonLeader& leader) const;

  SeasonLead lead_;
  std::shared_ptr<const SeasonFigures> season_;
  std::vector<SeasonLeader> leaders_;
  QString more_;  // who shares the tenth place; "": nobody
};

}  // namespace dtb
