// The window "Scorecard".
#pragma once

#include <QBoxLayout>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "game/board.h"
#include "record/scorecard_drawing.h"
#include "windows/scorecard/card_view.h"

namespace dtb {

// A side's page of the scorecard at a time, of the game on the board, which it follows while it is
// open, or of any other. It waits for nobody: the game goes on beside it. It opens where it was
// left the last time.
class ScorecardWindow : public QDialog {
  Q_OBJECT
 public:
  ScorecardWindow(Platform& platform, QWidget* parent);

  // From now on the card is that of the board's game; it begins with the side at bat. The board
  // must outlive the window.
  void FollowBoard(Board& board);
  // From now on it is that of this game, which does not change.
  void ShowRecord(const GameRecord& record);

  [[nodiscard]] Side side() const;
  void ShowSide(Side side);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildHead(QBoxLayout& column);
  void BuildButtons(QBoxLayout& column);
  QPushButton* AddButton(const char* name, const QString& caption, const QString& tip);
  // The card as the game stands now.
  void Update();
  void ShowCard();
  void SaveAsSvg();
  void SaveAsPdf();
  void Print();
  // The pages of both sides, the visitors first.
  [[nodiscard]] std::vector<Drawing> BothSides(PageSize page) const;
  [[nodiscard]] Dress dress() const;
  void Save(const QString& sides, const char* filter, const char* extension, const char* told,
            const std::function<std::string()>& bytes);

  Platform& platform_;
  Board* board_ = nullptr;  // none: another game
  GameRecord game_;
  QTimer later_;  // after a click the board comes first
  QLabel* title_;
  QTabBar* sides_;
  QCheckBox* paper_;
  CardView* view_;
  std::vector<QPushButton*> buttons_;
  QPushButton* lineUps_ = nullptr;
  QRect placed_;  // where the window was opened
};

// Prints a card with both line-ups filled in, for those who keep score by pencil.
void PrintLineUpCard(Board& board, QWidget* over);

}  // namespace dtb
