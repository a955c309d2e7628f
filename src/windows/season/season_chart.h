// What all pictures of the season have in common.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <vector>

#include "season/season_leaders.h"
#include "season/season_standings.h"

namespace dtb {

inline constexpr double kFigureRoom = 3.6;  // of a leader, in type sizes

// A plate with a title and a picture of figures. It has marks, such as games or bars, of which one
// may be lit: by the pointer, or with the focus by the arrow keys, Home and End. A click on it, or
// Enter, chooses it. The picture is painted once for a size; the lit mark goes over it.
class SeasonChart : public QWidget {
  Q_OBJECT
 public:
  SeasonChart(const char* name, const QString& title, QWidget* parent = nullptr);

  // The size of the body type, in pixels.
  void SetType(double pixels);
  [[nodiscard]] QSize minimumSizeHint() const override { return {80, 60}; }

  // The mark that is lit; -1: none.
  [[nodiscard]] int lit() const { return lit_; }
  [[nodiscard]] virtual int marks() const = 0;
  // The middle of a mark, in pixels.
  [[nodiscard]] virtual QPointF PlaceOf(int mark) const = 0;
  // What a person is told of a mark.
  [[nodiscard]] virtual QString WordsOf(int mark) const = 0;

 protected:
  static constexpr double kReach = 1.6;  // of the pointer, in type sizes
  static constexpr int kMostMarks = 9;   // of an axis

  virtual void Draw(QPainter& painter) = 0;
  // The mark at a place; -1: none.
  [[nodiscard]] virtual int MarkAt(const QPointF& place) const = 0;
  virtual void Choose(int /*mark*/) {}
  virtual void DrawLit(QPainter& painter, int mark);

  // Other figures: the picture is repainted, and no mark is lit. The words are all that the
  // picture shows.
  void SetWords(const QString& words);
  // The same figures in another look.
  void Repaint();
  void Light(int mark);

  [[nodiscard]] double type() const { return type_; }
  [[nodiscard]] QFont SmallFont(bool bold = false) const;
  // The room below the title.
  [[nodiscard]] QRectF Inside() const;
  void DrawNote(QPainter& painter, const QString& text) const;
  // A leader's row: a bar as long as his value beside the longest, his name, his team and his
  // figure.
  void DrawLeader(QPainter& painter, const QRectF& place, const SeasonLeader& leader,
                  const SeasonFigures& season, double longest, const QColor& colour) const;
  void DrawBubble(QPainter& painter, const QPointF& at, const QString& words) const;

  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QString title_;
  QString words_;
  double type_;
  int lit_ = -1;
  QPixmap picture_;
};

// Where values lie in a rectangle; y goes up.
struct PlotScale {
  QRectF area;
  double left = 0;
  double right = 1;
  double bottom = 0;
  double top = 1;

  [[nodiscard]] double X(double value) const {
    return area.left() + (value - left) / (right - left) * area.width();
  }
  [[nodiscard]] double Y(double value) const {
    return area.bottom() - (value - bottom) / (top - bottom) * area.height();
  }
};

// A line across at each value, with its text at the left.
void DrawValueLines(QPainter& painter, const PlotScale& scale, const std::vector<double>& values,
                    const std::function<QString(double)>& textOf);
// A line down at the begin of each month, with its name below where there is room for it.
void DrawMonths(QPainter& painter, const PlotScale& scale, const std::vector<MonthMark>& months);

// Of the seven colours of teams.
[[nodiscard]] QColor LineColour(int colour);
[[nodiscard]] QPen LinePen(const LineLook& look, double width);

// The ground of pictures, and the colours of what was won and lost.
inline constexpr QColor kChartGround{30, 50, 41};
inline constexpr QColor kBarBlue{96, 190, 245};
inline constexpr QColor kWonBlue{96, 190, 245};
inline constexpr QColor kLostOrange{235, 120, 50};

}  // namespace dtb
