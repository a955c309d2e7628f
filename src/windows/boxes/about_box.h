// The about box.
#pragma once

#include <QDialog>

#include "platform/platform.h"

namespace dtb {

// The form frmAbout.
class AboutBox : public QDialog {
  Q_OBJECT
 public:
  // Opens the box over the board and returns when it is closed.
  static void Run(Platform& platform, QWidget* board);

 private:
  AboutBox(Platform& platform, QWidget* board);
  QWidget* BuildTexts();
  QWidget* BuildLink();
  QWidget* BuildButtons();

  [[nodiscard]] int Units(double length) const { return qRound(length * scale_); }

  Platform& platform_;
  double scale_;  // of the board's type
};

}  // namespace dtb
