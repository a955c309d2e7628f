// The window in which some of many games are chosen.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <vector>

#include "database/games_of_others.h"

namespace dtb {

// Created for each opening; all games are chosen at first.
class GamesWindow : public QDialog {
  Q_OBJECT
 public:
  // The ways of the menu, from the question which file to the answer what came of it.
  static void TakeIn(Platform& platform, QWidget* over);
  static void GiveOut(Platform& platform, QWidget* over);

  // `wish` is what is done with the chosen ones: "Take in".
  GamesWindow(const QString& title, const QString& wish, std::vector<GameIdentity> games,
              QWidget* parent);

  [[nodiscard]] std::vector<GameIdentity> Chosen() const;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void CheckAll(Qt::CheckState state);
  void CountChosen();
  // The board's type, and a size that goes with it.
  void FollowBoard();

  std::vector<GameIdentity> games_;
  QString wish_;
  QLabel* title_;
  QListWidget* list_;
  QPushButton* all_;
  QPushButton* none_;
  QPushButton* do_;
  QPushButton* cancel_;
};

}  // namespace dtb
