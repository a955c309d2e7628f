// A StatGrid on the screen.
#pragma once

#include <QAbstractTableModel>
#include <QPointer>
#include <QTableView>
#include <vector>

#include "base/stat_grid.h"

namespace dtb {

// Columns are as wide as so many twips, twentieths of a point: 15 to the pixel of the reference
// screen.
inline constexpr double kTwip = 1.0 / 15;

// The cells of a grid without a copy: row 0 of the grid is the header, row r is row r - 1 here.
class StatGridModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  StatGridModel(StatGrid& grid, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  void CentreHeaders() { headersCentred_ = true; }

 signals:
  void columnChanged(int column);

 private:
  void TellRearranged();

  StatGrid& grid_;
  bool headersCentred_ = false;  // whatever the alignment of the column
};

// A table whose columns have the grid's widths and whose type follows the form. Columns of width 0
// are hidden. Enter or a double click wants a cell edited, Delete wants it cleared. All signals
// give the grid's rows and columns.
class StatGridView : public QTableView {
  Q_OBJECT
 public:
  StatGridView(StatGrid& grid, QWidget* parent);

  // Type size in pixels, and pixels for a twentieth of a point of column width.
  void SetScale(double typePixels, double pixelsPerTwip);

  // Columns that share what is left of the table's width, names as a rule.
  void SetStretchColumns(std::vector<int> columns);
  // All shown columns take their part of it.
  void StretchAllColumns();

  // Shares the width of each column with another view of the same columns, so that both line up.
  void LineUpWith(StatGridView* other);

  // Rows and header share the height so that no row is cut off.
  void ShowWholeRows(bool whole = true) { wholeRows_ = whole; }

  // A column at least as wide as its longest text, whatever the grid says.
  void FitText(int column) { fitted_ = column; }
  // Pixels of all columns together.
  [[nodiscard]] int WidthOfColumns() const;

  // An arrow in the header shows on which column the rows are sorted, until they are replaced.
  void ShowSorted(int column, Qt::SortOrder order);

  // Rows that follow each other and have the same text in this column are framed together when one
  // of them is chosen.
  void MarkTogether(int column) { together_ = column; }

  // The looks of a query's result: header cells are centred, column 0 is hidden.
  void ShowAsResult();

  // The grid's row of the current cell.
  [[nodiscard]] int currentRow() const { return currentIndex().row() + 1; }
  void SetCurrentCell(int row, int column);
  // Where a cell of the grid lies in the viewport.
  [[nodiscard]] QRect CellRect(int row, int column) const;

 signals:
  void editWanted(int row, int column);
  void clearWanted(int row, int column);
  void cellClicked(int row, int column);  // or Enter
  // Or Ctrl + Enter. A double click on the header is one, too: row 0.
  void cellDoubleClicked(int row, int column);
  void arranged();  // the columns have new widths

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ArrangeSoon();
  void Arrange();
  [[nodiscard]] bool Shown(int column) const;
  // Pixels of each column; 0 for one that is not shown.
  [[nodiscard]] std::vector<int> Widths() const;
  // The same before what is left of the table's width is shared.
  [[nodiscard]] std::vector<int> OwnWidths() const;
  [[nodiscard]] std::vector<int> StretchedNow() const;
  void ArrangeRows();
  void FrameTogether();

  StatGrid& grid_;
  StatGridModel* model_;
  std::vector<int> stretched_;
  bool allStretched_ = false;
  bool firstColumnShown_ = true;
  bool arrangePending_ = false;
  bool wholeRows_ = false;
  int rowHeight_ = 0;  // pixels, before rows are made whole
  int fitted_ = -1;    // none
  int together_ = -1;  // none
  QPointer<StatGridView> twin_;
  double pixelsPerTwip_ = kTwip;
};

}  // namespace dtb
