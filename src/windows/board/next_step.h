// What a person does next until the first pitch, told in its own place on the board.
#pragma once

#include <QObject>

#include "game/board.h"
#include "game/outcome.h"

namespace dtb {

enum class Step {
  LoadVisitors,
  LoadHome,
  VisitorsPitcher,
  HomePitcher,
  AtBat,
  FirstBatter,
  None  // all is set
};

// The first of the steps that is still to be done; from the first out on there is none.
[[nodiscard]] Step NextStepOf(Board& board);

// Follows the board and tells its panels when another step is the next.
class NextStep : public QObject {
  Q_OBJECT
 public:
  NextStep(Board& board, QObject* parent);

  [[nodiscard]] bool Is(Step step) const { return step_ == step; }
  // It is the next, and an outcome was refused for want of it a moment ago.
  [[nodiscard]] bool Flashes(Step step) const { return flashes_ && Is(step); }

  // The board changed; the line-ups tell it here.
  void Refresh();
  // Records the outcome. Where it is refused because a step is missing, that one flashes once.
  // Where it has to be asked first which runner is out, nothing is recorded yet.
  void Record(Outcome outcome);

 signals:
  void changed();
  // Around an outcome and its boxes.
  void recording();
  void recorded();
  // A runner is out, and there are several.
  void runnerWanted();

 private:
  void Flash();

  Board& board_;
  Step step_;
  bool flashes_ = false;
  int flash_ = 0;  // the last one's number
};

}  // namespace dtb
