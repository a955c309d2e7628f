// How many runs the games of a season saw.
#pragma once

#include "season/season_scores.h"
#include "windows/season/season_chart.h"

namespace dtb {

// Bars side by side, each with a figure above and a label below. Its marks are the bars.
class SeasonBars : public SeasonChart {
  Q_OBJECT
 public:
  struct Bar {
    QString label;
    double value = 0;
    QString figure;
    QString words;
  };

  using SeasonChart::SeasonChart;
  void SetBars(std::vector<Bar> bars);

  [[nodiscard]] int marks() const override { return static_cast<int>(bars_.size()); }
  [[nodiscard]] QPointF PlaceOf(int mark) const override;
  [[nodiscard]] QString WordsOf(int mark) const override {
    return bars_.at(static_cast<std::size_t>(mark)).words;
  }

 protected:
  void Draw(QPainter& painter) override;
  [[nodiscard]] int MarkAt(const QPointF& place) const override;

 private:
  [[nodiscard]] QRectF Plot() const;
  [[nodiscard]] QRectF BarOf(int mark) const;

  std::vector<Bar> bars_;
  double highest_ = 1;
};

// A square for each final score, the more often it came the brighter. Its marks are the squares,
// row by row.
class SeasonFinals : public SeasonChart {
  Q_OBJECT
 public:
  SeasonFinals();
  void SetScores(const SeasonScores& scores);

  [[nodiscard]] int marks() const override { return scores_.games > 0 ? kSide * kSide : 0; }
  [[nodiscard]] QPointF PlaceOf(int mark) const override { return SquareOf(mark).center(); }
  [[nodiscard]] QString WordsOf(int mark) const override;

 protected:
  void Draw(QPainter& painter) override;
  [[nodiscard]] int MarkAt(const QPointF& place) const override;

 private:
  static constexpr int kSide = kMostRunsOfScore + 1;
  [[nodiscard]] QRectF SquareOf(int mark) const;
  [[nodiscard]] int TimesOf(int mark) const;

  SeasonScores scores_;
};

}  // namespace dtb
