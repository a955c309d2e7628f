// The frame of a window of tables: what stands above and below them in one column, of one width
// and one type, and grows with the window.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <string>
#include <vector>

#include "base/control_resizer.h"
#include "base/field.h"
#include "windows/shared/stat_grid_view.h"

namespace dtb {

// A member of the window, behind the state that it shows: the views go before their grids and
// fields.
class TableFrame {
 public:
  // The window's size in layout units.
  TableFrame(QDialog& window, double width, double height);
  ~TableFrame();
  TableFrame(const TableFrame&) = delete;
  TableFrame& operator=(const TableFrame&) = delete;

  [[nodiscard]] QVBoxLayout* column() { return column_; }
  // A row of the column.
  QHBoxLayout* AddStrip();
  // A table in which rows are chosen.
  StatGridView* AddGrid(QBoxLayout* place, const char* name, const char* accessibleName,
                        StatGrid& grid, int share = 1);
  // A text in lines as wide as the column; "" takes one line.
  QLabel* AddText(const char* name, Field<std::string>& text);

  // The last of the window's constructor: its size, as it fits on the screen.
  void Fit();
  // The window's size has changed.
  void Resize();

 private:
  QDialog& window_;
  ControlResizer resizer_;
  QWidget* inside_;
  QVBoxLayout* column_;
  std::vector<StatGridView*> grids_;
};

}  // namespace dtb
