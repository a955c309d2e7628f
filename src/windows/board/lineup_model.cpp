#include "windows/board/lineup_model.h"

#include <QHash>

#include "platform/qt/qt_text.h"
#include "teams/lineup_edit.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr double kSmallestRemark = look::kSmall / look::kLarge;  // of the type of the names
constexpr double kLeastForNames = 0.48;                          // of a row with a remark

}  // namespace

const QString kDueNote = QStringLiteral("due");

LineupModel::LineupModel(Board& board, Side side, const NextStep& next, QObject* parent)
    : QAbstractListModel(parent),
      board_(board),
      side_(side),
      list_(SideOf(board, side).list),
      next_(next) {}

int LineupModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shownRows_;
}

QVariant LineupModel::data(const QModelIndex& index, int role) const {
  if (!list_.HasRow(index.row())) return {};
  const auto entry = [&] {
    return ShownEntry(list_.entries()[static_cast<std::size_t>(index.row())]);
  };
  switch (role) {
    case Qt::DisplayRole:
      return entry();
    case Qt::AccessibleTextRole:
      return index.row() == RowOfBatter(board_, side_)
                 ? entry() + QStringLiteral(", at bat")
                 : (entry() + QLatin1Char(' ') + NoteOf(index.row())).trimmed();
    case kBatterRole:
      return index.row() == RowOfBatter(board_, side_);
    case kNoteRole:
      return NoteOf(index.row());
    case kNextRole:
      if (!IsNext(index.row())) return 0;
      return next_.Flashes(Step::FirstBatter) ? 2 : 1;
    default:
      return {};
  }
}

// A short name that two players have would tell them apart less than a cut one.
void LineupModel::MeasureNames(const QFont& font) const {
  const QFontMetrics metrics(font);
  const auto measured = [&](const QString& text) {
    return Measured{text, look::TextWidth(metrics, text)};
  };
  QHash<QString, int> bearers;
  layout_.rows.clear();
  for (const std::string& entry : measuredEntries_) {
    const LineUpEntry parts = PartsOf(entry);
    layout_.rows.push_back({.name = measured(parts.name),
                            .shortName = measured(ShortName(parts.name)),
                            .remark = {parts.remark}});
    ++bearers[layout_.rows.back().shortName.text];
  }
  for (Row& row : layout_.rows) {
    if (bearers.value(row.shortName.text) > 1) row.shortName = row.name;
  }
}

// One column and one size for the remarks of the whole list: the largest in which those of the
// batting order are whole. Where the names leave them no room, the longest names are shortened. The
// bench and the pitchers may have much longer remarks.
void LineupModel::FitRemarks(const QFont& font, int room) const {
  int longest = 0;
  for (const Row& row : layout_.rows) {
    if (!row.remark.text.isEmpty()) longest = std::max(longest, row.name.width + kLineupGap);
  }
  layout_.remarks = font;
  layout_.left = longest;
  const int least = std::min(longest, static_cast<int>(room * kLeastForNames));
  for (const double share : look::kFittingSizes) {
    if (share < kSmallestRemark) break;
    layout_.remarks.setPixelSize(look::FittingSize(font.pixelSize(), share));
    const QFontMetrics metrics(layout_.remarks);
    int widest = 0;
    for (Row& row : layout_.rows) {
      row.remark.width = look::TextWidth(metrics, row.remark.text);
      const bool inOrder = &row - layout_.rows.data() < kStarters;
      if (inOrder) widest = std::max(widest, row.remark.width);
    }
    layout_.left = std::clamp(room - kLineupSlack - widest, least, longest);
    if (room - kLineupSlack - widest >= least) break;
  }
}

const LineupModel::Layout& LineupModel::LayoutIn(const QFont& font, int room) const {
  const bool same = measuredRoom_ >= 0 && measuredFont_ == font;
  if (same && measuredRoom_ == room && measuredEntries_ == list_.entries()) return layout_;
  if (!same || measuredEntries_ != list_.entries()) {
    measuredEntries_ = list_.entries();
    measuredFont_ = font;
    MeasureNames(font);
  }
  measuredRoom_ = room;
  FitRemarks(font, room);
  return layout_;
}

bool LineupModel::IsNext(int row) const {
  return next_.Is(Step::FirstBatter) && row == RowOfBatterDue(board_, side_);
}

QString LineupModel::NoteOf(int row) const {
  if (IsNext(row)) return QStringLiteral("Click the first batter");
  if (row == RowOfBatterDue(board_, side_)) return kDueNote;
  if (row < kStarters && !IsOnSheet(board_, side_, row)) return QStringLiteral("not on the sheet");
  return {};
}

void LineupModel::Refresh() {
  const int rows = list_.size();
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

}  // namespace dtb
