// The statistics sheet of the game in progress.
#pragma once

#include <QDialog>
#include <QLineEdit>

#include "game/board.h"
#include "platform/qt/qt_pictures.h"
#include "windows/shared/scene.h"
#include "windows/shared/stat_grid_view.h"
#include "windows/sheet/decision_line.h"
#include "windows/sheet/proof_view.h"

namespace dtb {

// Shown over the board and hidden, never destroyed, when it is closed.
class SheetWindow : public QDialog {
  Q_OBJECT
 public:
  // The save names the park whose picture is shown.
  SheetWindow(Board& board, const Field<Picture>& park, QtPictures& pictures, QWidget* parent);
  // The controls go before what they look at, as on the board.
  ~SheetWindow() override;
  SheetWindow(const SheetWindow&) = delete;
  SheetWindow& operator=(const SheetWindow&) = delete;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildTop(QtPictures& pictures);
  void CentreBoxScore();
  void BuildSide(Side side);
  void BuildBottom();
  void BuildExports();
  void BuildEditor();
  void FollowSteps();
  void BuildProof();
  void ShowProof();
  void OpenProofList();
  void SendToExcel();
  void ShowEditor(bool shown);
  void Commit();
  [[nodiscard]] StatGridView& TableOf(Side side) {
    return side == Side::Visitors ? *visitors_ : *home_;
  }
  [[nodiscard]] StatGridView& EditedTable();

  Board& board_;
  const Field<Picture>& park_;
  Scene scene_;
  StatGridView* boxScore_ = nullptr;
  StatGridView* visitors_ = nullptr;
  StatGridView* home_ = nullptr;
  QLineEdit* editor_ = nullptr;
  DecisionLine* decisions_ = nullptr;
  ProofPlate* proofPlate_ = nullptr;
  ProofList* proofList_ = nullptr;
};

}  // namespace dtb
