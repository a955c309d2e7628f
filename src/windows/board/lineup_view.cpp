#include "windows/board/lineup_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "game/history.h"
#include "platform/qt/qt_text.h"
#include "windows/boxes/closing_press.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

// No screen shows more of a line; the box of the right click shows all of it.
constexpr std::size_t kShownBytes = 600;

constexpr int kRing = 3;  // pixels around the rows; of the keyboard focus

QString ShownEntry(const std::string& entry) {
  return ToQt(std::string_view(entry).substr(0, kShownBytes));
}

// What else the model tells of a row.
constexpr int kBatterRole = Qt::UserRole;    // he bats now
constexpr int kNoteRole = Qt::UserRole + 1;  // a word about him
constexpr QColor kDimInk{64, 70, 66};        // what is no name
constexpr int kGap = 10;                     // pixels between a name and what is remarked of him
constexpr int kSlack = 2;                    // pixels by which a text may be wider than its letters
constexpr double kSmallestRemark = kSmall / kLarge;  // of the type of the names

constexpr int kRows = 12;  // fill the list without a scroll bar

// Draws place in the order, entry, and the line under the ninth man.
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
    const bool inOrder = index.row() < kStarters;
    const int gutter = option.fontMetrics.horizontalAdvance(QStringLiteral("00")) + 4;
    painter->setFont(Font(option.font.pixelSize() * 0.72));
    painter->setPen(batter || selected ? kInk : kDimInk);
    if (inOrder) {
      painter->drawText(QRect(row.left(), row.top(), gutter, row.height()), Qt::AlignCenter,
                        QString::number(index.row() + 1));
    }
    const int noteWidth = note.isEmpty() ? 0 : DrawNote(*painter, row, note);
    painter->setFont(option.font);
    const QRect place = row.adjusted(gutter + 2, 0, -4, 0);
    DrawEntry(*painter, place.adjusted(0, 0, -noteWidth, 0), place.width(), index,
              batter || selected ? kInk : kDimInk);
    if (index.row() == kStarters - 1) {
      painter->setPen(QPen(kEdgeBright, 1));
      painter->drawLine(row.bottomLeft(), row.bottomRight());
    }
    painter->restore();
  }

  // The name, and in a column of its own what stands behind "=". A remark too long for the column
  // begins further left, as far as the name leaves room.
  // `room` is what a row without a chip has.
  static void DrawEntry(QPainter& painter, const QRect& place, int room, const QModelIndex& index,
                        const QColor& remarkInk) {
    const QFontMetrics metrics = painter.fontMetrics();
    const auto* model = static_cast<const LineupModel*>(index.model());
    const LineupModel::Entry entry = model->EntryAt(index.row());
    painter.setPen(kInk);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(entry.name, Qt::ElideRight, place.width()));
    if (entry.remark.isEmpty()) return;
    const int nameEnd = metrics.horizontalAdvance(entry.name) + kGap;
    if (nameEnd >= place.width()) return;
    const LineupModel::Remarks shown = model->RemarksIn(painter.font(), room);
    painter.setFont(shown.font);
    const QFontMetrics remarks = painter.fontMetrics();
    const int width =
        std::min(remarks.horizontalAdvance(entry.remark) + kSlack, place.width() - nameEnd);
    const int left = std::min(std::max(nameEnd, shown.left), place.width() - width);
    painter.setPen(remarkInk);
    painter.drawText(QRect(place.left() + left, place.top(), width, place.height()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     remarks.elidedText(entry.remark, Qt::ElideRight, width));
  }

  // A chip at the right end of the row, in the present small type. Returns its width with its gap.
  static int DrawNote(QPainter& painter, const QRect& row, const QString& note) {
    const QFontMetrics metrics(painter.font());
    const int width = metrics.horizontalAdvance(note) + metrics.height();
    const int height = metrics.height() + 2;
    const QRect chip(row.right() - width - 3, row.center().y() - height / 2, width, height);
    DrawPlate(painter, chip, kSlate, Qt::transparent, 0, height / 2.0);
    painter.setPen(kCream);
    painter.drawText(chip, Qt::AlignCenter, note);
    return width + 6;
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

LineupModel::LineupModel(Board& board, Side side, QObject* parent)
    : QAbstractListModel(parent), board_(board), side_(side), list_(SideOf(board, side).list) {}

int LineupModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shownRows_;
}

QVariant LineupModel::data(const QModelIndex& index, int role) const {
  if (!list_.HasRow(index.row())) return {};
  const QString entry = ShownEntry(list_.entries()[static_cast<std::size_t>(index.row())]);
  switch (role) {
    case Qt::DisplayRole:
      return entry;
    case Qt::AccessibleTextRole:
      return index.row() == RowOfBatter(board_, side_)
                 ? entry + QStringLiteral(", at bat")
                 : (entry + QLatin1Char(' ') + NoteOf(index.row())).trimmed();
    case kBatterRole:
      return index.row() == RowOfBatter(board_, side_);
    case kNoteRole:
      return NoteOf(index.row());
    default:
      return {};
  }
}

LineupModel::Entry LineupModel::EntryAt(int row) const {
  const QString entry = ShownEntry(list_.entries()[static_cast<std::size_t>(row)]);
  const auto mark = entry.indexOf(QLatin1Char('='));
  if (mark < 0) return {entry, {}};
  return {entry.left(mark), entry.mid(mark + 1)};
}

// One size for the remarks of the whole list: the largest in which those of the batting order fit
// behind their names. The bench and the pitchers may have much longer ones.
LineupModel::Remarks LineupModel::RemarksIn(const QFont& font, int room) const {
  if (measuredRoom_ == room && measured_ == font) return remarks_;
  measured_ = font;
  measuredRoom_ = room;
  const QFontMetrics names(font);
  remarks_ = {font, 0};
  int longest = 0;
  QList<QPair<int, QString>> inOrder;  // end of the name, and remark
  for (int row = 0; row < shownRows_; ++row) {
    const Entry entry = EntryAt(row);
    if (entry.remark.isEmpty()) continue;
    const int nameEnd = names.horizontalAdvance(entry.name) + kGap;
    longest = std::max(longest, nameEnd);
    if (row < kStarters) inOrder.append({nameEnd, entry.remark});
  }
  remarks_.left = longest;
  for (const double share : kFittingSizes) {
    if (share < kSmallestRemark) break;
    remarks_.font.setPixelSize(FittingSize(font.pixelSize(), share));
    const QFontMetrics metrics(remarks_.font);
    if (std::ranges::all_of(inOrder, [&](const auto& entry) {
          return entry.first + metrics.horizontalAdvance(entry.second) + kSlack <= room;
        })) {
      break;
    }
  }
  return remarks_;
}

QString LineupModel::NoteOf(int row) const {
  if (row == RowOfManDue(board_, side_)) return QStringLiteral("due");
  if (row < kStarters && !IsOnSheet(board_, side_, row)) return QStringLiteral("not on the sheet");
  return {};
}

void LineupModel::Refresh() {
  const int rows = list_.size();
  measuredRoom_ = -1;
  if (rows > shownRows_) {
    beginInsertRows({}, shownRows_, rows - 1);
    shownRows_ = rows;
    endInsertRows();
  } else if (rows < shownRows_) {
    beginRemoveRows({}, rows, shownRows_ - 1);
    shownRows_ = rows;
    endRemoveRows();
  } else if (rows > 0) {
    emit dataChanged(index(0), index(rows - 1));
  }
}

LineupView::LineupView(Board& board, Side side, QWidget* parent)
    : QListView(parent),
      board_(board),
      side_(side),
      model_(new LineupModel(board, side, this)),
      runner_(board, side, this) {
  setModel(model_);
  setItemDelegate(new EntryDelegate(this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerItem);
  setFrameShape(NoFrame);
  setViewportMargins(kRing, kRing, kRing, kRing);
  setMouseTracking(true);
  setContextMenuPolicy(Qt::PreventContextMenu);
  TakeClosingPress(viewport());
  setResizeMode(Adjust);
  SideOf(board, side).list.Observe([this] { ShowState(); });
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
    board.history->Observe([self = QPointer(this)] {
      if (self) self->viewport()->update();
    });
  }
  ShowState();
}

void LineupView::ShowState() {
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
}

void LineupView::mouseMoveEvent(QMouseEvent* event) {
  const LineupList& list = SideOf(board_, side_).list;
  const auto row = RowAt(event->pos());
  const bool pressed = pressed_ == Qt::LeftButton && event->buttons().testFlag(Qt::LeftButton);
  if (pressed && runner_.Move(event->globalPosition().toPoint())) return;
  if (!row || !list.HasRow(*row)) return;
  setToolTip(QStringLiteral("<qt><p style=\"white-space:pre-wrap\">%1</p></qt>")
                 .arg(ShownEntry(list.entries()[static_cast<std::size_t>(*row)]).toHtmlEscaped()));
  if (pressed && SideOf(board_, side_).edit.value() && *row != list.selected())
    SelectRow(board_, side_, *row);
}

void LineupView::mouseReleaseEvent(QMouseEvent* event) {
  if (pressed_ == Qt::NoButton || event->button() != pressed_) return;
  pressed_ = Qt::NoButton;
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

void LineupView::keyPressEvent(QKeyEvent* event) {
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

void LineupView::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  QPainter painter(viewport());
  // Whole rows only: what is left below the twelfth is too little for a name.
  QRect rest = viewport()->rect();
  rest.setTop(rest.height() - rest.height() % kRows);
  painter.fillRect(rest, palette().color(QPalette::Base));
}

// The ring of the focus stands around the rows, for one who plays by keys: after a click on a row
// it would mark a side for the rest of the inning.
bool LineupView::event(QEvent* event) {
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
    DrawFocus(painter, viewport()->geometry().adjusted(-kRing, -kRing, kRing, kRing), 2);
  }
  return done;
}

}  // namespace dtb
