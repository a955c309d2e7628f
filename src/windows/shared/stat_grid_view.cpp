#include "windows/shared/stat_grid_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QResizeEvent>
#include <algorithm>
#include <numeric>

#include "platform/qt/qt_text.h"
#include "windows/shared/look.h"

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
                [this](int column) { emit columnChanged(column); },
                [this] {
                  beginResetModel();
                  endResetModel();
                },
                [this] { TellRearranged(); }});
}

void StatGridModel::TellRearranged() {
  if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
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
    case Qt::ForegroundRole: {
      const auto& ink = grid_.ColumnAt(index.column()).ink;
      return ink ? look::Shade(*ink) : look::kInk;
    }
    default:
      return {};
  }
}

QVariant StatGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) return ShownText(grid_, 0, section);
  if (role == Qt::TextAlignmentRole) {
    return headersCentred_ ? int{Qt::AlignCenter}
                           : AlignmentOf(grid_.ColumnAt(section).alignment).toInt();
  }
  return {};
}

StatGridView::StatGridView(StatGrid& grid, QWidget* parent)
    : QTableView(parent), grid_(grid), model_(new StatGridModel(grid, this)) {
  setModel(model_);
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
  palette.setColor(QPalette::Base, look::kSlate);  // what the rows do not fill
  setPalette(palette);
  connect(model_, &StatGridModel::columnChanged, this, &StatGridView::ArrangeSoon);
  connect(model_, &StatGridModel::modelReset, this, [this] {
    horizontalHeader()->setSortIndicatorShown(false);
    ArrangeSoon();
    if (twin_) twin_->ArrangeSoon();
  });
  // The frame around a game is larger than its cell.
  connect(selectionModel(), &QItemSelectionModel::currentChanged, viewport(),
          qOverload<>(&QWidget::update));
  connect(this, &QTableView::clicked, this,
          [this](const QModelIndex& cell) { emit cellClicked(cell.row() + 1, cell.column()); });
  connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
          [this](int column) { emit cellDoubleClicked(0, column); });
}

void StatGridView::SetScale(double typePixels, double pixelsPerTwip) {
  pixelsPerTwip_ = pixelsPerTwip;
  setFont(look::Font(typePixels));
  horizontalHeader()->setFont(look::Font(typePixels, true));
  rowHeight_ = qRound(font().pixelSize() * 1.5);
  verticalHeader()->setDefaultSectionSize(rowHeight_);
  horizontalHeader()->setMinimumHeight(0);
  horizontalHeader()->setMaximumHeight(QWIDGETSIZE_MAX);
  updateGeometries();
  Arrange();
}

void StatGridView::LineUpWith(StatGridView* other) {
  twin_ = other;
  other->twin_ = this;
}

void StatGridView::ShowSorted(int column, Qt::SortOrder order) {
  horizontalHeader()->setSortIndicatorShown(true);
  horizontalHeader()->setSortIndicator(column, order);
}

void StatGridView::SetStretchColumns(std::vector<int> columns) {
  stretched_ = std::move(columns);
  Arrange();
}

void StatGridView::StretchAllColumns() {
  allStretched_ = true;
  Arrange();
}

void StatGridView::ShowAsResult() {
  model_->CentreHeaders();
  firstColumnShown_ = false;
  Arrange();
}

void StatGridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  Arrange();
  if (twin_ && event->size().width() != event->oldSize().width()) twin_->Arrange();
}

// A new result changes each column in turn; they are arranged once, before the next painting.
void StatGridView::ArrangeSoon() {
  viewport()->update();
  if (arrangePending_) return;
  arrangePending_ = true;
  QMetaObject::invokeMethod(this, &StatGridView::Arrange, Qt::QueuedConnection);
}

bool StatGridView::Shown(int column) const {
  return grid_.ColumnAt(column).width >= 1 && (column > 0 || firstColumnShown_);
}

std::vector<int> StatGridView::StretchedNow() const {
  std::vector<int> columns;
  for (int column = 0; column < grid_.columns(); ++column) {
    const bool chosen = std::find(stretched_.begin(), stretched_.end(), column) != stretched_.end();
    if (Shown(column) && (allStretched_ || chosen)) columns.push_back(column);
  }
  return columns;
}

std::vector<int> StatGridView::OwnWidths() const {
  std::vector<int> widths(static_cast<std::size_t>(grid_.columns()));
  for (int column = 0; column < grid_.columns(); ++column) {
    if (!Shown(column)) continue;
    int& width = widths[static_cast<std::size_t>(column)];
    width = std::max(1, qRound(grid_.ColumnAt(column).width * pixelsPerTwip_));
    if (column == fitted_) width = std::max(width, sizeHintForColumn(column));
  }
  return widths;
}

int StatGridView::WidthOfColumns() const {
  const std::vector<int> widths = OwnWidths();
  return std::accumulate(widths.begin(), widths.end(), 0);
}

std::vector<int> StatGridView::Widths() const {
  std::vector<int> widths = OwnWidths();
  int room = viewport()->width();
  if (twin_) {
    const std::vector<int> others = twin_->OwnWidths();
    room = std::min(room, twin_->viewport()->width());
    for (std::size_t i = 0; i < std::min(widths.size(), others.size()); ++i) {
      if (widths[i] > 0) widths[i] = std::max(widths[i], others[i]);
    }
  }
  int left = room - std::accumulate(widths.begin(), widths.end(), 0);
  if (left < 0 && fitted_ >= 0) {
    int& width = widths[static_cast<std::size_t>(fitted_)];
    width = std::max(width + left, qRound(grid_.ColumnAt(fitted_).width * pixelsPerTwip_));
  }
  const std::vector<int> stretched = StretchedNow();
  auto sharers = static_cast<int>(stretched.size());
  for (const int column : stretched) {
    if (left <= 0) break;
    const int share = left / sharers--;
    widths[static_cast<std::size_t>(column)] += share;
    left -= share;
  }
  return widths;
}

void StatGridView::Arrange() {
  arrangePending_ = false;
  ArrangeRows();
  const std::vector<int> widths = Widths();
  for (int column = 0; column < grid_.columns(); ++column) {
    const int width = widths[static_cast<std::size_t>(column)];
    setColumnHidden(column, width == 0);
    if (width > 0) setColumnWidth(column, width);
  }
  emit arranged();
}

// Fewer rows, a little higher, are taken where they leave less over for the header.
void StatGridView::ArrangeRows() {
  if (!wholeRows_ || rowHeight_ <= 0) return;
  const int all = viewport()->height() + horizontalHeader()->height();
  const int room = all - horizontalHeader()->sizeHint().height();
  const int most = room / rowHeight_;
  if (most < 1) return;
  const int fewest = most - most / 5;
  int rows = most;
  for (int fewer = most; fewer >= fewest; --fewer) {
    if (room % fewer < room % rows) rows = fewer;
  }
  const int header = all - rows * (room / rows);
  verticalHeader()->setDefaultSectionSize(room / rows);
  if (horizontalHeader()->height() == header) return;
  horizontalHeader()->setFixedHeight(header);
  updateGeometries();
}

void StatGridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (together_ >= 0 && currentIndex().isValid()) FrameTogether();
}

void StatGridView::FrameTogether() {
  const auto text = [this](int row) { return grid_.Text(row, together_); };
  int first = currentRow();
  int last = first;
  if (text(first).empty()) return;
  while (first > 1 && text(first - 1) == text(first)) --first;
  while (last + 1 < grid_.rows() && text(last + 1) == text(last)) ++last;
  const int top = rowViewportPosition(first - 1);
  const int bottom = rowViewportPosition(last - 1) + rowHeight(last - 1);
  const int width = std::min(viewport()->width(), horizontalHeader()->length());
  QPainter painter(viewport());
  look::DrawPlate(painter, QRectF(0, top, width, bottom - top), Qt::transparent, look::kMarkGreen,
                  3, 2);
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
    if (!cell.isValid() || event->isAutoRepeat()) return;
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
      emit cellDoubleClicked(cell.row() + 1, cell.column());
    } else {
      emit cellClicked(cell.row() + 1, cell.column());
    }
    emit editWanted(cell.row() + 1, cell.column());
  } else if (event->key() == Qt::Key_Delete) {
    if (cell.isValid()) emit clearWanted(cell.row() + 1, cell.column());
  } else {
    QTableView::keyPressEvent(event);
  }
}

void StatGridView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex cell = indexAt(event->pos());
  if (cell.isValid() && event->button() == Qt::LeftButton) {
    emit cellDoubleClicked(cell.row() + 1, cell.column());
    emit editWanted(cell.row() + 1, cell.column());
  }
}

}  // namespace dtb
