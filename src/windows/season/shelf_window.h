// The window in which a season is chosen.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

#include "base/control_resizer.h"
#include "database/season_shelf.h"
#include "windows/shared/stat_grid_view.h"

namespace dtb {

// Made anew for each opening.
class ShelfWindow : public QDialog {
  Q_OBJECT
 public:
  // Opens the window over another and waits until the person has closed it. True: another season is
  // in use than before.
  static bool Run(Platform& platform, QWidget* over);

  ShelfWindow(Platform& platform, QWidget* parent);
  ~ShelfWindow() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildName(QVBoxLayout* whole);
  void BuildButtons(QVBoxLayout* whole);
  QPushButton* AddButton(QBoxLayout* strip, const char* name, const char* caption, const char* tip,
                         void (*wish)(ShelfDesk&));
  void Do(void (*wish)(ShelfDesk&));

  ShelfState state_;
  ShelfDesk desk_;
  ControlResizer resizer_;
  QWidget* inside_;
  StatGridView* seasons_ = nullptr;
  QLineEdit* name_ = nullptr;
};

}  // namespace dtb
