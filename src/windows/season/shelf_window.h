// The window in which a season is chosen.
#pragma once

#include <QDialog>

#include "database/season_shelf.h"
#include "windows/shared/table_frame.h"

namespace dtb {

// Created for each opening.
class ShelfWindow : public QDialog {
  Q_OBJECT
 public:
  // Opens the window over another and waits until the person has closed it. True: another season is
  // in use than before.
  static bool Run(Platform& platform, QWidget* over);

  ShelfWindow(Platform& platform, QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildName();
  void BuildButtons();
  void AddWish(QBoxLayout* strip, const char* name, const char* caption, const char* tip,
               void (*wish)(ShelfDesk&));
  void Do(void (*wish)(ShelfDesk&));

  ShelfState state_;
  ShelfDesk desk_;
  TableFrame frame_;
  StatGridView* seasons_ = nullptr;
};

}  // namespace dtb
