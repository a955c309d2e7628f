// The window "Plays".
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <array>
#include <optional>

#include "game/board.h"
#include "windows/plays/plays_list.h"
#include "windows/plays/run_line.h"
#include "windows/shared/controls.h"

namespace dtb {

// All plays of the game in words, and what the runs of the chosen one are credited as. Created
// for each opening; it begins at the last play.
class PlaysWindow : public QDialog {
  Q_OBJECT
 public:
  // The board must have a history.
  PlaysWindow(Board& board, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  static constexpr int kMostRuns = 4;

  void BuildRuns();
  void BuildButtons();
  // The game as it stands now.
  void Update();
  void ShowChosen();
  void ShowStory();
  void ShowRuns();
  void ShowUndo();
  // The row of the chosen play; -1: there is none.
  [[nodiscard]] int Chosen() const { return list_->currentIndex().row(); }
  [[nodiscard]] std::optional<std::size_t> StepsBack() const;
  void UndoToHere();
  void Copy(const QModelIndexList& rows);
  [[nodiscard]] QModelIndexList AllRows() const;
  // Says beside the buttons what became of a wish.
  void Tell(const QString& outcome) { outcome_->setText(outcome); }
  // The board's type, and a size that goes with it.
  void FollowBoard();

  Board& board_;
  PlaysModel model_;
  QLabel* title_;
  PlaysList* list_;
  QTextBrowser* story_;
  Panel* runs_;
  QLabel* noRun_;
  std::array<RunLine*, kMostRuns> lines_{};
  std::array<std::size_t, kMostRuns> moves_{};  // of the chosen play, which the lines show
  QLabel* outcome_;
  QPushButton* asStory_ = nullptr;
  QPushButton* undo_ = nullptr;
  QPushButton* copy_ = nullptr;
  QPushButton* close_ = nullptr;
};

}  // namespace dtb
