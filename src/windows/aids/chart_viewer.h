// The viewer of the charts, with the dice beside them.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QStackedWidget>
#include <array>
#include <optional>

#include "aids/aids_state.h"
#include "game/board.h"
#include "game/outcome.h"
#include "windows/aids/chart_picture.h"
#include "windows/shared/controls.h"

namespace dtb {

// One chart at a time; the strip above, the keys 1 to 9, PgUp and PgDn go to another. Beside it lie
// the dice that are on the board, which Space rolls again, how the game stands, and the outcomes:
// choosing one, by a
// click or its key, closes the viewer. The hits have the keys Ctrl + 1 to 4 here. Esc closes.
class ChartViewer : public QDialog {
  Q_OBJECT
 public:
  struct Choice {
    Outcome outcome;
    int key = 0;  // that chose it; 0: the mouse
  };

  // Opens the viewer over the board's window at a chart, 0 to 8, and returns when it is closed: the
  // outcome that was chosen, if one was. The chart at which it stood last is kept in the aids.
  [[nodiscard]] static std::optional<Choice> Run(Board& board, Aids& aids, int chart,
                                                 QWidget* window);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  ChartViewer(Board& board, Aids& aids, QWidget* window);

  QWidget* BuildStrip();
  QWidget* BuildSide();
  QWidget* BuildDice(QWidget* side);
  QWidget* BuildOutcomes(QWidget* side);
  void ShowChart(int chart);
  void Choose(const Choice& choice);
  [[nodiscard]] int Units(double length) const;

  Board& board_;
  Aids& aids_;
  double scale_;  // of the board, 1 at the reference size
  std::array<ClickLabel*, kChartButtons> titles_{};
  QStackedWidget* page_ = nullptr;
  ChartPicture* picture_ = nullptr;
  QLabel* missing_ = nullptr;
  std::optional<Choice> chosen_;
};

}  // namespace dtb
