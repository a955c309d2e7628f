#include "windows/stat_grid_view.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "platform/qt/qt_text.h"
#include "windows/look.h"

namespace dtb {
namespace {

// No screen shows more of a cell.
constexpr std::size_t kShownBytes = 600;

QString ShownText(const StatGrid& grid, int row, int column) {
  return ToQt(grid.Text(row, column).substr(0, kShownBytes));
}

Qt::Alignment AlignmentOf(CellAlignment alignment) {
  switch (alignment) {
    case CellAlignment::Centred:
      return Qt::AlignCenter;
    case CellAlignment::Right:
      return Qt::AlignRight | Qt::AlignVCenter;
    case CellAlignment::Left:
      break;
  }
  return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace

StatGridModel::StatGridModel(StatGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid) {
  grid.Observe({[this](int row, int column) {
                  if (row == 0) {
                    emit headerDataChanged(Qt::Horizontal, column, column);
                  } else {
                    const QModelIndex cell = index(row - 1, column);
                    emit dataChanged(cell, cell);
                  }
                },
                [this](int column) { emit columnChanged(column); }});
}

int StatGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.rows() - 1;
}

int StatGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.columns();
}

QVariant StatGridModel::data(const QModelIndex& index, int role) const {
  const int row = index.row() + 1;
  switch (role) {
    case Qt::DisplayRole:
      return ShownText(grid_, row, index.column());
    case Qt::TextAlignmentRole:
      return AlignmentOf(grid_.ColumnAt(index.column()).alignment).toInt();
    case Qt::BackgroundRole:
      return look::Shade(grid_.RowColour(row));
    case Qt::ForegroundRole:
      return look::kInk;
    default:
      return {};
  }
}

QVariant StatGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) return ShownText(grid_, 0, section);
  if (role == Qt::TextAlignmentRole) return AlignmentOf(grid_.ColumnAt(section).alignment).toInt();
  return {};
}

StatGridView::StatGridView(StatGrid& grid, QWidget* parent) : QTableView(parent), grid_(grid) {
  auto* model = new StatGridModel(grid, this);
  setModel(model);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setFrameShape(NoFrame);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(8);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setMinimumSectionSize(4);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(false);
  setTabKeyNavigation(false);  // Tab leaves the table, the arrow keys move inside it
  setHorizontalScrollMode(ScrollPerPixel);
  QPalette palette = this->palette();
  palette.setColor(QPalette::Base, QColor(224, 224, 224));
  setPalette(palette);
  connect(model, &StatGridModel::columnChanged, this, &StatGridView::ArrangeColumn);
}

void StatGridView::SetScale(double typePixels, double pixelsPerTwip) {
  pixelsPerTwip_ = pixelsPerTwip;
  setFont(look::Font(typePixels));
  horizontalHeader()->setFont(look::Font(typePixels, true));
  verticalHeader()->setDefaultSectionSize(qRound(typePixels * 1.5));
  for (int column = 0; column < grid_.columns(); ++column) ArrangeColumn(column);
  Stretch();
}

void StatGridView::SetStretchColumns(std::vector<int> columns) {
  stretched_ = std::move(columns);
  Stretch();
}

void StatGridView::Stretch() {
  if (stretched_.empty()) return;
  for (const int column : stretched_) ArrangeColumn(column);
  const int left = viewport()->width() - horizontalHeader()->length();
  if (left <= 0) return;
  const int share = left / static_cast<int>(stretched_.size());
  for (const int column : stretched_) setColumnWidth(column, columnWidth(column) + share);
}

void StatGridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  Stretch();
}

void StatGridView::ArrangeColumn(int column) {
  const int width = grid_.ColumnAt(column).width;
  setColumnHidden(column, width < 1);
  if (width >= 1) setColumnWidth(column, qRound(width * pixelsPerTwip_));
}

void StatGridView::SetCurrentCell(int row, int column) {
  setCurrentIndex(model()->index(row - 1, column));
}

QRect StatGridView::CellRect(int row, int column) const {
  return visualRect(model()->index(row - 1, column));
}

void StatGridView::keyPressEvent(QKeyEvent* event) {
  const QModelIndex cell = currentIndex();
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter) {
    if (cell.isValid() && !event->isAutoRepeat()) emit editWanted(cell.row() + 1, cell.column());
  } else if (event->key() == Qt::Key_Delete) {
    if (cell.isValid()) emit clearWanted(cell.row() + 1, cell.column());
  } else {
    QTableView::keyPressEvent(event);
  }
}

void StatGridView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex cell = indexAt(event->pos());
  if (cell.isValid() && event->button() == Qt::LeftButton) {
    emit editWanted(cell.row() + 1, cell.column());
  }
}

}  // namespace dtb
