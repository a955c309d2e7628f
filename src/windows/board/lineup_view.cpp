#include "windows/board/lineup_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <utility>

#include "game/history.h"
#include "platform/qt/qt_text.h"
#include "windows/boxes/closing_press.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

using namespace look;

constexpr int kFocusRing = 3;  // pixels around the rows; of the keyboard focus

constexpr QColor kDimInk{64, 70, 66};  // what is no name
constexpr int kRows = 12;              // fill the list without a scroll bar

// The chip with which a row ends.
int ChipWidth(const QFont& names, const QString& note) {
  const QFontMetrics metrics(Font(names.pixelSize() * 0.72));
  return metrics.horizontalAdvance(note) + metrics.height() + 6;
}

// Draws place in the order, entry, and the line under the ninth player.
class EntryDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QRect row = option.rect;
    const QString note = index.data(kNoteRole).toString();
    // Bright is the batter and nobody else; where the side's highlight stands is quiet.
    const bool batter = index.data(kBatterRole).toBool();
    if (batter || selected) painter->fillRect(row, batter ? kAccent : QColor(222, 200, 132));
    // Under the letters, and as thin as the screen draws, so that no foot of one is hidden.
    if (index.row() == kStarters - 1) {
      const double thin = 1 / painter->device()->devicePixelRatioF();
      painter->fillRect(QRectF(row.left(), row.top() + row.height() - thin, row.width(), thin),
                        kEdgeBright);
    }
    const bool inOrder = index.row() < kStarters;
    const int gutter = option.fontMetrics.horizontalAdvance(QStringLiteral("00")) + 4;
    painter->setFont(Font(option.font.pixelSize() * 0.72));
    painter->setPen(batter || selected ? kInk : kDimInk);
    const bool due = note == kDueNote;
    const QRect numberPlace(row.left(), row.top(), gutter, row.height());
    if (inOrder && !due) {
      painter->drawText(numberPlace, Qt::AlignCenter, QString::number(index.row() + 1));
    }
    // Who is due is told in place of his number, so that his figures are seen.
    if (due) {
      painter->setFont(Font(option.font.pixelSize() * 0.64));
      DrawChip(*painter, numberPlace.adjusted(0, 0, -1, 0), note, 0);
      painter->setFont(Font(option.font.pixelSize() * 0.72));
    }
    const int noteWidth = note.isEmpty() || due ? 0 : ChipWidth(option.font, note);
    if (noteWidth > 0) {
      const QRect end(row.right() - noteWidth + 3, row.top(), noteWidth - 6, row.height());
      DrawChip(*painter, end, note, index.data(kNextRole).toInt());
    }
    painter->setFont(option.font);
    const QRect place = row.adjusted(gutter + 2, 0, -4, 0);
    DrawEntry(*painter, place, place.width() - noteWidth, index,
              batter || selected ? kInk : kDimInk);
    painter->restore();
  }

  // The name, and in a column of its own what stands behind "=". `free` is what a chip leaves.
  static void DrawEntry(QPainter& painter, const QRect& place, int free, const QModelIndex& index,
                        const QColor& remarkInk) {
    const auto* model = static_cast<const LineupModel*>(index.model());
    const LineupModel::Layout& layout = model->LayoutIn(painter.font(), place.width());
    if (std::cmp_greater_equal(index.row(), layout.rows.size())) return;  // gone since
    const LineupModel::Row& row = layout.rows[static_cast<std::size_t>(index.row())];
    const int room = free - layout.left - kLineupSlack;
    const bool remark = !row.remark.text.isEmpty() && room > 0;
    const auto draw = [&](const LineupModel::Measured& text, int left, int width) {
      painter.drawText(QRect(place.left() + left, place.top(), width, place.height()),
                       Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                       text.width <= width
                           ? text.text
                           : painter.fontMetrics().elidedText(text.text, Qt::ElideRight, width));
    };
    painter.setPen(kInk);
    const int nameRoom = remark ? layout.left - kLineupGap : free;
    draw(row.name.width <= nameRoom ? row.name : row.shortName, 0, nameRoom);
    if (!remark) return;
    painter.setFont(layout.remarks);
    painter.setPen(remarkInk);
    draw(row.remark, layout.left, room);
  }

  // A chip as wide as its place, in the present small type; `next` as kNextRole has it.
  static void DrawChip(QPainter& painter, const QRect& place, const QString& note, int next) {
    const int height = std::min(place.height(), painter.fontMetrics().height() + 2);
    const QRect chip(place.left(), place.center().y() - height / 2, place.width(), height);
    const bool bright = next == 1;
    DrawPlate(painter, chip, bright ? kAccent : kSlate, bright ? kInk : Qt::transparent,
              bright ? 1 : 0, height / 2.0);
    painter.setPen(bright ? kInk : kCream);
    painter.drawText(chip, Qt::AlignCenter, note);
  }

  // As wide as the list, however long the entry.
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const auto* view = qobject_cast<const QListView*>(option.widget);
    if (view == nullptr) return QStyledItemDelegate::sizeHint(option, index);
    return {view->viewport()->width(), qMax(8, view->viewport()->height() / kRows)};
  }
};

MouseButton ButtonOf(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return MouseButton::Left;
  return button == Qt::RightButton ? MouseButton::Right : MouseButton::Other;
}

}  // namespace

LineupView::LineupView(Board& board, Side side, NextStep& next, QWidget* parent)
    : QListView(parent),
      board_(board),
      side_(side),
      next_(next),
      model_(new LineupModel(board, side, next, this)),
      runner_(board, side, this) {
  setModel(model_);
  setItemDelegate(new EntryDelegate(this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerItem);
  setFrameShape(NoFrame);
  FitRows();
  setMouseTracking(true);
  setContextMenuPolicy(Qt::PreventContextMenu);
  TakeClosingPress(viewport());
  setResizeMode(Adjust);
  SideOf(board, side).list.Observe([this] { ShowState(); }, WhileItLives(this));
  FollowAll(
      this,
      [this] {
        QPalette palette = this->palette();
        palette.setColor(QPalette::Base, Shade(SideColour(board_.state, side_)));
        setPalette(palette);
      },
      board.state.Option5, board.state.Option6);
  FollowAll(
      this, [this] { viewport()->update(); }, board.state.lbl_Selected, board.state.VisDue,
      board.state.HomeDue, board.state.BatterOf);
  if (board.history != nullptr) {
    // The sheet may have got a line for somebody.
    board.history->Observe([this] { viewport()->update(); }, WhileItLives(this));
  }
  connect(&next, &NextStep::changed, viewport(), qOverload<>(&QWidget::update));
  // A screen reader selects a row where a person would click it.
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    const QModelIndexList rows = selectionModel()->selectedRows();
    if (showing_ || rows.isEmpty()) return;
    if (rows.first().row() != SideOf(board_, side_).list.selected()) {
      SelectRow(board_, side_, rows.first().row());
    }
  });
  ShowState();
}

void LineupView::ShowState() {
  const QScopedValueRollback showing(showing_, true);
  next_.Refresh();
  emit shown();
  const LineupList& list = SideOf(board_, side_).list;
  model_->Refresh();
  const QModelIndex selected = model_->index(list.selected());
  const bool shown = !selected.isValid() || selectionModel()->isSelected(selected);
  if (currentIndex() == selected && shown) return;
  setCurrentIndex(selected);
  if (!selected.isValid()) clearSelection();
}

void LineupView::ScrollUpOneLine() {
  verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
}

std::optional<int> LineupView::RowAt(const QPoint& place) const {
  const QModelIndex index = indexAt(place);
  if (!index.isValid()) return std::nullopt;
  return index.row();
}

void LineupView::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  SealGesture(board_);
  const auto row = RowAt(event->pos());
  // A drag begins on a row, and with the left button; the right one looks at the row it is let go
  // on.
  const bool left = event->button() == Qt::LeftButton;
  pressed_ = event->button() == Qt::RightButton || (left && row) ? event->button() : Qt::NoButton;
  if (!left || !row) return;
  runner_.Begin(*row);
  SelectRow(board_, side_, *row);
  BeginDrag(board_, side_);
  SetDropsBehind(event->modifiers() == Qt::ShiftModifier);
}

bool LineupView::Drags() const {
  return pressed_ == Qt::LeftButton && SideOf(board_, side_).edit.value();
}

void LineupView::SetDropsBehind(bool behind) {
  dropsBehind_ = behind;
  if (Drags()) viewport()->update();
}

void LineupView::mouseMoveEvent(QMouseEvent* event) {
  const LineupList& list = SideOf(board_, side_).list;
  const auto row = RowAt(event->pos());
  const bool pressed = pressed_ == Qt::LeftButton && event->buttons().testFlag(Qt::LeftButton);
  if (pressed && runner_.Move(event->globalPosition().toPoint())) return;
  if (!row || !list.HasRow(*row)) return;
  const std::string& entry = list.entries()[static_cast<std::size_t>(*row)];
  setToolTip(TipOfLines({ShownEntry(entry), use_ ? use_(PartsOf(entry).name) : QString()}));
  SetDropsBehind(event->modifiers() == Qt::ShiftModifier);
  const bool dragging = Drags() && event->buttons().testFlag(Qt::LeftButton);
  if (dragging && *row != list.selected()) SelectRow(board_, side_, *row);
}

void LineupView::mouseReleaseEvent(QMouseEvent* event) {
  if (pressed_ == Qt::NoButton || event->button() != pressed_) return;
  pressed_ = Qt::NoButton;
  viewport()->update();
  const QPoint place = event->globalPosition().toPoint();
  if (event->button() == Qt::LeftButton && runner_.End(place)) return;
  if (event->button() == Qt::RightButton) return LookAt(RowAt(event->pos()), place);
  EndDrag(board_, side_, ButtonOf(event->button()), event->modifiers() == Qt::ShiftModifier,
          RowAt(event->pos()));
}

void LineupView::LookAt(std::optional<int> row, const QPoint& place) {
  const bool reads = row ? runner_.ShowMenu(*row, place).value_or(true) : true;
  if (reads) EndDrag(board_, side_, MouseButton::Right, false, row);
}

void LineupView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) ReplaceEntry(board_, side_);
}

void LineupView::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Shift) SetDropsBehind(false);
  QListView::keyReleaseEvent(event);
}

void LineupView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Shift) SetDropsBehind(true);
  const LineupList& list = SideOf(board_, side_).list;
  constexpr int page = kRows - 1;
  const auto select = [this](int row) { SelectRow(board_, side_, row); };
  switch (event->key()) {
    case Qt::Key_Up:
      select(list.selected() - 1);
      break;
    case Qt::Key_Down:
      select(list.selected() + 1);
      break;
    case Qt::Key_PageUp:
      select(std::max(0, list.selected() - page));
      break;
    case Qt::Key_PageDown:
      select(std::min(list.size() - 1, list.selected() + page));
      break;
    case Qt::Key_Home:
      select(0);
      break;
    case Qt::Key_End:
      select(list.size() - 1);
      break;
    case Qt::Key_Space:
      select(list.selected());
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!event->isAutoRepeat()) ReplaceEntry(board_, side_);
      break;
    case Qt::Key_Menu:
      LookAt(list.selected(), mapToGlobal(visualRect(currentIndex()).center()));
      break;
    default:
      event->ignore();
  }
}

// Twelve whole rows are the viewport; what is left below them is too little for a name and no row.
void LineupView::FitRows() {
  const int rest = std::max(0, height() - 2 * kFocusRing) % kRows;
  setViewportMargins(kFocusRing, kFocusRing, kFocusRing, kFocusRing + rest);
}

// Qt would let the rows keep their old size for a tenth of a second, cut as they are.
void LineupView::resizeEvent(QResizeEvent* event) {
  QListView::resizeEvent(event);
  if (event->size() != event->oldSize()) doItemsLayout();
}

void LineupView::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  QPainter painter(viewport());
  if (model_->rowCount() == 0) DrawHint(painter);
  if (Drags()) DrawInsertionLine(painter);
}

void LineupView::DrawInsertionLine(QPainter& painter) const {
  const int from = board_.state.DragSourceIndex;
  const int target = SideOf(board_, side_).list.selected();
  const QRect row = visualRect(model_->index(target));
  if (from == target || !row.isValid()) return;
  constexpr int kLine = 4;  // pixels
  const int middle = dropsBehind_ ? row.bottom() + 1 : row.top();
  const int top = std::clamp(middle - kLine / 2, 0, viewport()->height() - kLine);
  painter.fillRect(QRect(row.left(), top, row.width(), kLine), kInk);
  painter.fillRect(QRect(row.left(), top + 1, row.width(), kLine - 2), kAccent);
}

void LineupView::DrawHint(QPainter& painter) const {
  const Step load = side_ == Side::Visitors ? Step::LoadVisitors : Step::LoadHome;
  painter.setFont(font());
  const QString words = side_ == Side::Visitors ? QStringLiteral("Load the visiting team")
                                                : QStringLiteral("Load the home team");
  const QFontMetrics metrics = painter.fontMetrics();
  QRect plate(0, 0, TextWidth(metrics, words) + 2 * metrics.height(), metrics.height() * 2);
  plate.moveCenter(viewport()->rect().center());
  const bool bright = next_.Is(load) && !next_.Flashes(load);
  if (bright || next_.Flashes(load)) {
    DrawPlate(painter, plate, bright ? kAccent : kSlate, kInk, 1);
  }
  painter.setPen(next_.Flashes(load) ? kCream : kInk);
  painter.drawText(plate, Qt::AlignCenter, words);
}

// The ground goes on around the rows, so that the list is as high as its bar. The ring of the focus
// stands around the rows, for one who plays by keys: after a click on a row it would mark a side
// for the rest of the inning.
bool LineupView::event(QEvent* event) {
  if (event->type() == QEvent::Resize) FitRows();
  if (event->type() == QEvent::Paint) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
  }
  const bool done = QListView::event(event);
  if (event->type() == QEvent::FocusIn) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason == Qt::MouseFocusReason) usesKeys_ = false;
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) usesKeys_ = true;
  }
  if (event->type() == QEvent::KeyPress && event->isAccepted()) usesKeys_ = true;
  const bool changes = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut ||
                       event->type() == QEvent::KeyPress;
  if (changes) update();
  if (event->type() == QEvent::Paint && hasFocus() && usesKeys_) {
    QPainter painter(this);
    DrawFocus(painter,
              viewport()->geometry().adjusted(-kFocusRing, -kFocusRing, kFocusRing, kFocusRing), 2);
  }
  return done;
}

}  // namespace dtb
