// The proof of the box score, on the sheet: the plate beside the line score, and the list over it.
#pragma once

#include <QAbstractButton>
#include <QVBoxLayout>

#include "sheet/proof.h"
#include "windows/shared/controls.h"
#include "windows/shared/scene.h"

namespace dtb {

// "In proof" and who was left on base, or how many figures there are to look at.
class ProofPlate : public QAbstractButton {
  Q_OBJECT
 public:
  explicit ProofPlate(QWidget* parent);
  void Show(Board& board, const std::vector<Finding>& findings);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  bool agrees_ = true;
};

// One line for each finding. A click on a line goes to its cell.
class ProofList : public Panel {
  Q_OBJECT
 public:
  explicit ProofList(QWidget* parent);
  // Type in pixels.
  void Show(const std::vector<Finding>& findings, double type);
  // The height at which no line has to be scrolled, in this width.
  [[nodiscard]] int WholeHeight(int width) const;

 signals:
  void cellWanted(const Finding& finding);
  void putRightWanted(const std::vector<Finding>& findings);
  void closed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddLine(const Finding& finding, double type, QVBoxLayout* lines);
  void AddButtons(const std::vector<Finding>& mendable, double type);

  QVBoxLayout* column_;
  QLabel* title_ = nullptr;
  QWidget* page_ = nullptr;  // the lines
  QWidget* buttons_ = nullptr;
};

}  // namespace dtb
