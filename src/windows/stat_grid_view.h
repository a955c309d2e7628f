// A StatGrid on the screen.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <vector>

#include "sheet/stat_grid.h"

namespace dtb {

// The cells of a grid without a copy: row 0 of the grid is the header, row r is row r - 1 here.
class StatGridModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  StatGridModel(StatGrid& grid, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 signals:
  void columnChanged(int column);

 private:
  StatGrid& grid_;
};

// A table whose columns have the grid's widths and whose type follows the form. Columns of width 0
// are hidden. Enter or a double click wants a cell edited, Delete wants it cleared.
class StatGridView : public QTableView {
  Q_OBJECT
 public:
  StatGridView(StatGrid& grid, QWidget* parent);

  // Type size in pixels, and pixels for a twentieth of a point of column width.
  void SetScale(double typePixels, double pixelsPerTwip);

  // Columns that share what is left of the table's width, names as a rule.
  void SetStretchColumns(std::vector<int> columns);

  // The grid's row of the current cell.
  [[nodiscard]] int currentRow() const { return currentIndex().row() + 1; }
  void SetCurrentCell(int row, int column);
  // Where a cell of the grid lies in the viewport.
  [[nodiscard]] QRect CellRect(int row, int column) const;

 signals:
  void editWanted(int row, int column);
  void clearWanted(int row, int column);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ArrangeColumn(int column);
  void Stretch();

  StatGrid& grid_;
  std::vector<int> stretched_;
  double pixelsPerTwip_ = 1.0 / 15;
};

}  // namespace dtb
