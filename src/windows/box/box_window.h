// The window "Box": a game's box score and its story.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <optional>
#include <thread>

#include "game/board.h"
#include "record/box_score.h"
#include "record/season_to_date.h"
#include "windows/shared/hand_over.h"

namespace dtb {

// Created for each opening. What the players did before in the season is read by a thread of its
// own; until it is there, the box score has none of it.
class BoxWindow : public QDialog {
  Q_OBJECT
 public:
  // A saved game.
  BoxWindow(Platform& platform, const GameRecord& game, QWidget* parent);
  // The game on the board, as it goes on. The board must have a history.
  BoxWindow(Board& board, QWidget* parent);

  // What the players did before is there, or cannot be read.
  [[nodiscard]] bool settled() const { return before_.has_value(); }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  enum class View { Box, Story };

  BoxWindow(Platform& platform, QWidget* parent);
  void BuildButtons();
  void ShowGame(GameRecord game);
  void ReadBefore();
  void Show(View view);
  void ShowText();
  [[nodiscard]] SeasonToDate ToDate() const;
  [[nodiscard]] BoxScore Box() const;
  void CopyText();
  void CopyDay();
  void Tell(const QString& outcome) { outcome_->setText(outcome); }
  // The board's type, and a size that goes with it.
  void FollowBoard();

  Platform& platform_;
  GameRecord game_;
  View view_ = View::Box;
  std::optional<SeasonToDate> before_;
  QLabel* title_;
  QLabel* when_;
  QTextBrowser* text_;
  QLabel* outcome_;
  QPushButton* box_ = nullptr;
  QPushButton* story_ = nullptr;
  QPushButton* copy_ = nullptr;
  QPushButton* day_ = nullptr;
  QPushButton* close_ = nullptr;
  HandOver handOver_;
  std::jthread reading_;  // the last member, so that the others outlive it
};

}  // namespace dtb
