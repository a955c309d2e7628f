// The window in which a copy of the database is brought back.
#pragma once

#include <QDialog>

#include "database/restore.h"
#include "windows/shared/table_frame.h"

namespace dtb {

// Created for each opening.
class CopiesWindow : public QDialog {
  Q_OBJECT
 public:
  // Opens the window over another and waits until the person has closed it. True: the database is
  // another one than before.
  static bool Run(Platform& platform, QWidget* over);

  CopiesWindow(Platform& platform, QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildTables();
  void BuildButtons();

  CopiesState state_;
  CopiesDesk desk_;
  TableFrame frame_;
  StatGridView* copies_ = nullptr;
};

}  // namespace dtb
