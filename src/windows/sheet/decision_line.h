// The line of the sheet that says who won, lost and saved the game.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <array>

#include "game/board.h"
#include "record/game_record.h"

class QMenu;

namespace dtb {

// A button for each kind of decision, with the pitchers who have it; its menu changes who that is.
class DecisionLine : public QWidget {
  Q_OBJECT
 public:
  DecisionLine(Board& board, QWidget* parent);

  // The game as it stands now.
  void Update();
  void SetType(const QFont& font);

 private:
  struct Button {
    Decision kind = Decision::Win;
    QPushButton* button = nullptr;
  };

  void AddButton(Decision kind, int stretch);
  void FillMenu(Decision kind, QMenu* menu);
  void Choose(Decision kind, Side side, const std::string& pitcher, bool on);

  Board& board_;
  GameRecord game_;
  QLabel* caption_;
  std::array<Button, kAllDecisions.size()> buttons_{};
};

}  // namespace dtb
