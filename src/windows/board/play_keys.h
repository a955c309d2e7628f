// A game played by keyboard.
#pragma once

#include <QKeyEvent>
#include <QSet>

#include "game/outcome.h"
#include "windows/shared/controls.h"
#include "windows/shared/scene.h"

namespace dtb {

// The plate that shows all keys, over the board. Any click and the keys "?" and Esc close it.
class KeyPlate : public Panel {
  Q_OBJECT
 public:
  KeyPlate(Scene& scene, QWidget* parent);

 protected:
  void mousePressEvent(QMouseEvent* /*event*/) override { hide(); }
};

// What the keys do while no text field has the focus. The board hands over the key presses that
// none of its controls wanted.
class PlayKeys : public QObject {
  Q_OBJECT
 public:
  PlayKeys(Board& board, Scene& scene, QWidget* boardWindow);

  // True if the key means something.
  bool Press(const QKeyEvent& event);
  // Several runners are on base and one is out: the next press on a piece, or the key of his base,
  // says who. Esc, and every other press, take the outcome back.
  void AskWhoIsOut() { AskForRunner(Question::Out); }
  // The plate of the keys over the board.
  void ShowPlate(bool shown);
  // The plate is shown, or a stolen base waits for its game piece: what Esc closes.
  [[nodiscard]] bool open() const {
    return asked_ != Question::None || (plate_ != nullptr && plate_->isVisible());
  }

  // A button would take Up and Down for steps to its neighbours; with these they go to the line-up.
  void TakeArrowsFrom(QAbstractButton* button) {
    arrowless_.insert(button);
    button->installEventFilter(this);
  }

 signals:
  void chartsWanted();          // at the chart where they stood last; of a new batter, the first
  void chartWanted(int chart);  // 0 to 8
  void diceWanted();            // rolled
  void outcomeWanted(Outcome outcome);
  void listWanted(int key);  // an arrow: the line-up of the side at bat takes it

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // What the number that comes next is about.
  enum class Question { None, Steal, Out };
  bool PressOutcome(int key);
  bool PressRunner(int base, Qt::KeyboardModifiers modifiers);
  void AskForRunner(Question question);
  bool Answer(int number);
  bool AnswerByPiece(const QObject* pressed);

  Board& board_;
  Scene& scene_;
  QWidget* window_;
  KeyPlate* plate_ = nullptr;  // none before somebody wants it: it has many labels
  Panel* runnerHint_;
  QSet<const QObject*> arrowless_;
  QLabel* runnerQuestion_;
  Question asked_ = Question::None;
};

}  // namespace dtb
