// The scoreboard: team names, line score, outs, ballparks and charts.
#pragma once

#include <functional>

#include "aids/aids_state.h"
#include "game/board.h"
#include "platform/qt/qt_pictures.h"
#include "windows/shared/draggable.h"
#include "windows/shared/scene.h"

namespace dtb {

// Frame3 and what stands on it, and Frame1, the panel of innings 11 to 20 over it. Frame3 can be
// dragged with the mouse.
class Scoreboard : public DraggablePanel {
  Q_OBJECT
 public:
  Scoreboard(Board& board, Aids& aids, QtPictures& pictures, Scene& scene, QWidget* parent);

  // Keeps the extra innings over the line score, wherever that is. Runs ten times a second.
  void AlignExtraInnings();

 signals:
  void chartWanted(int chart);
  void keysWanted();

 private:
  void BuildTeams(QWidget* frame, QtPictures& pictures);
  void BuildLineScore(QWidget* frame);
  void BuildOuts();
  void BuildCommands();
  void BuildCharts();
  void BuildExtraInnings(QtPictures& pictures);
  void DressTeam(FigureField* team, Side side, const QPointF& origin);
  void AddScoreCell(QWidget* frame, Side side, int cell, const Place& place);
  // The next key of the person does in the cell what the next digit of the score pad does.
  void SyncCaret(FigureField* field) const;
  // That half-inning is being played.
  [[nodiscard]] bool InProgress(Side side, int inning) const;
  void AddDigit(QWidget* frame, int digit, const Place& place);

  Board& board_;
  Aids& aids_;
  Scene& scene_;
  Panel* extraInnings_ = nullptr;
};

}  // namespace dtb
