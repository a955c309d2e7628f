#include "windows/season/use_table.h"

#include <QPainter>
#include <algorithm>

#include "browser/grid_format.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr QColor kWithin{170, 208, 232};
constexpr QColor kAbovePace{255, 220, 120};
constexpr QColor kOver{246, 172, 120};
constexpr double kYearAt = 0.8;  // of a bar's room, the rest is for what goes beyond
constexpr int kBarTwips = 2600;

QColor ColourOf(real::UseMark mark) {
  switch (mark) {
    case real::UseMark::Over:
      return kOver;
    case real::UseMark::AbovePace:
      return kAbovePace;
    case real::UseMark::Within:
      break;
  }
  return kWithin;
}

// The bar lies behind the figures.
class UseDelegate : public QStyledItemDelegate {
 public:
  explicit UseDelegate(UseTable* table) : QStyledItemDelegate(table), table_(table) {}

 protected:
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const auto row = static_cast<std::size_t>(index.row());
    const auto kind = static_cast<std::size_t>(index.column() - 2);
    const auto& players = table_->players();
    painter->fillRect(option.rect, index.data(Qt::BackgroundRole).value<QColor>());
    if (row < players.size() && kind < players[row].uses.size()) {
      DrawBar(*painter, option.rect, players[row], players[row].uses[kind]);
    }
    painter->setFont(option.font);
    painter->setPen(kInk);
    painter->drawText(option.rect.adjusted(6, 0, -2, 0), Qt::AlignVCenter | Qt::TextSingleLine,
                      index.data().toString());
    if (option.state.testFlag(QStyle::State_Selected)) {
      painter->setPen(QPen(kInk, 1));
      painter->setBrush(Qt::NoBrush);
      painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
  }

 private:
  static void DrawBar(QPainter& painter, const QRect& cell, const real::PlayerUse& player,
                      const real::Use& use) {
    const QRectF room = QRectF(cell).adjusted(3, 2, -3, -2);
    if (!player.inArchive || (use.year <= 0 && use.replayed <= 0)) return;
    const double year = room.width() * kYearAt;
    const double share = use.year > 0 ? use.replayed / use.year : 2;
    QRectF bar = room;
    bar.setWidth(std::min(room.width(), share * year));
    painter.fillRect(bar, ColourOf(use.mark));
    if (use.year <= 0) return;
    const auto line = [&](double at, int wide, const QColor& colour) {
      painter.fillRect(
          QRectF(room.left() + at * year - wide / 2.0, room.top(), wide, room.height()), colour);
    };
    line(use.toDate / use.year, 1, kMarkGreen);
    line(1, 2, kPlateGrey);
  }

  UseTable* table_;
};

}  // namespace

UseTable::UseTable(const char* name, const QString& accessibleName, StatGrid& grid)
    : StatGridView(grid, nullptr), shown_(grid) {
  Name(this, name, accessibleName);
  ShowAsResult();
  ShowWholeRows();
  StretchAllColumns();
  setSelectionBehavior(QTableView::SelectRows);
}

void UseTable::SetPlayers(std::vector<real::PlayerUse> players, SeasonRole role) {
  players_ = std::move(players);
  StatGrid grid = GridOf(real::UseTexts(players_, role));
  const int kinds = role == SeasonRole::Batting ? 1 : 3;
  for (int column = 2; column < 2 + kinds; ++column) {
    grid.SetColumnWidth(column, std::max(grid.ColumnAt(column).width, kBarTwips));
  }
  auto* bars = new UseDelegate(this);
  for (int column = 0; column < 6; ++column) setItemDelegateForColumn(column, nullptr);
  for (int column = 2; column < 2 + kinds; ++column) setItemDelegateForColumn(column, bars);
  shown_.Take(std::move(grid));
}

}  // namespace dtb
