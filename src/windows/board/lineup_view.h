// A side's line-up as a list on the board.
#pragma once

#include <QAbstractListModel>
#include <QFontMetrics>
#include <QListView>

#include "game/board.h"
#include "teams/lineup_edit.h"

namespace dtb {

class LineupModel : public QAbstractListModel {
  Q_OBJECT
 public:
  LineupModel(Board& board, Side side, QObject* parent);
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  // The list changed in any way.
  void Refresh();

  // An entry as it is shown: the name, and what stands behind the first "=".
  struct Entry {
    QString name;
    QString remark;
  };
  [[nodiscard]] Entry EntryAt(int row) const;
  // The width of the longest name that has a remark: the remarks stand behind it in a column.
  [[nodiscard]] int RemarksBegin(const QFontMetrics& metrics) const;

 private:
  // What stands at the right of a row: who is due, and who has no line on the sheet.
  [[nodiscard]] QString NoteOf(int row) const;

  Board& board_;
  Side side_;
  LineupList& list_;
  int shownRows_ = 0;
  mutable QFontMetrics measured_{QFont()};  // in which the width below was measured
  mutable int remarksBegin_ = -1;           // below 0: not known yet
};

// Turns the gestures of mouse and keyboard into operations on the side's line-up. The row under the
// pointer is read in full in the tool-tip; a right click shows it in a box.
class LineupView : public QListView {
  Q_OBJECT
 public:
  LineupView(Board& board, Side side, QWidget* parent);

  void ScrollUpOneLine();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void ShowState();
  [[nodiscard]] std::optional<int> RowAt(const QPoint& place) const;

  Board& board_;
  Side side_;
  LineupModel* model_;
  Qt::MouseButton pressed_ = Qt::NoButton;  // whose release means something here
};

}  // namespace dtb
