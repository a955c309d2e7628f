// The window in which a copy of the database is brought back.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <vector>

#include "base/control_resizer.h"
#include "database/restore.h"
#include "windows/shared/stat_grid_view.h"

namespace dtb {

// Made anew for each opening.
class CopiesWindow : public QDialog {
  Q_OBJECT
 public:
  // Opens the window over another and waits until the person has closed it. True: the database is
  // another one than before.
  static bool Run(Platform& platform, QWidget* over);

  CopiesWindow(Platform& platform, QWidget* parent);
  ~CopiesWindow() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildTables(QVBoxLayout* whole);
  void BuildButtons(QVBoxLayout* whole);
  StatGridView* AddGrid(QBoxLayout* place, const char* name, const char* accessibleName,
                        StatGrid& grid, int share);
  QLabel* AddText(QBoxLayout* place, const char* name, Field<std::string>& text);
  QPushButton* AddButton(QBoxLayout* strip, const char* name, const char* caption);

  CopiesState state_;
  CopiesDesk desk_;
  ControlResizer resizer_;
  QWidget* inside_;
  StatGridView* copies_ = nullptr;
  std::vector<StatGridView*> grids_;
};

}  // namespace dtb
