#include "windows/plays/plays_list.h"

#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "base/words.h"
#include "game/play_credits.h"
#include "game/play_words.h"
#include "platform/qt/qt_text.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr const char* kNoPlay = "No play has been recorded yet.";
constexpr QColor kDimInk{96, 100, 96};
constexpr int kWrapped = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

QFont HeadingFont(QFont font) {
  font.setBold(true);
  return font;
}

// Outs and words of a play side by side, under the heading if the play has one.
class PlayDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const PlaysModel& model = ModelOf(index);
    painter->save();
    QRect row = option.rect;
    if (const QString heading = model.HeadingOf(index.row()); !heading.isEmpty()) {
      QRect band = row;
      band.setHeight(HeadingHeight(option.font));
      row.setTop(band.bottom() + 1);
      painter->fillRect(band, option.palette.color(QPalette::AlternateBase));
      painter->setFont(HeadingFont(option.font));
      painter->setPen(kInk);
      const QRect place = band.adjusted(Gap(option), 0, -Gap(option), 0);
      painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                        ElidedText(painter->fontMetrics(), heading, place.width()));
    }
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    if (selected) painter->fillRect(row, option.palette.color(QPalette::Highlight));
    painter->setFont(option.font);
    painter->setPen(selected ? kInk : kDimInk);
    const Play& play = model.PlayAt(index.row());
    const QRect place = row.adjusted(Gap(option), Margin(option), -Gap(option), -Margin(option));
    painter->drawText(place, kWrapped, OutsOf(play));
    painter->setPen(kInk);
    painter->drawText(place.adjusted(WordsLeft(option), 0, 0, 0), kWrapped,
                      ToQt(PlayInWords(play)));
    if (option.state.testFlag(QStyle::State_HasFocus)) DrawFocus(*painter, row, 0);
    painter->restore();
  }

  // As wide as the list and as high as the words take.
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override {
    const auto* view = qobject_cast<const QListView*>(option.widget);
    if (view == nullptr) return QStyledItemDelegate::sizeHint(option, index);
    const PlaysModel& model = ModelOf(index);
    const int width = view->viewport()->width();
    const int room = std::max(1, width - WordsLeft(option) - 2 * Gap(option));
    const QString words = ToQt(PlayInWords(model.PlayAt(index.row())));
    const QFontMetrics metrics(option.font);
    int height = metrics.boundingRect(QRect(0, 0, room, 10000), kWrapped, words).height();
    height += 2 * Margin(option);
    if (!model.HeadingOf(index.row()).isEmpty()) height += HeadingHeight(option.font);
    return {width, height};
  }

 private:
  static const PlaysModel& ModelOf(const QModelIndex& index) {
    return *static_cast<const PlaysModel*>(index.model());
  }
  static QString OutsOf(const Play& play) { return ToQt(Counted(play.outsBefore, "out")); }
  static int Gap(const QStyleOptionViewItem& option) {
    return QFontMetrics(option.font).height() / 2;
  }
  static int Margin(const QStyleOptionViewItem& option) {
    return QFontMetrics(option.font).height() / 6;
  }
  static int HeadingHeight(const QFont& font) {
    return QFontMetrics(HeadingFont(font)).height() * 3 / 2;
  }
  static int WordsLeft(const QStyleOptionViewItem& option) {
    return TextWidth(QFontMetrics(option.font), QStringLiteral("0 outs")) + Gap(option);
  }
};

}  // namespace

PlaysModel::PlaysModel(Board& board, QObject* parent)
    : QAbstractListModel(parent), board_(board), plays_(board.state.plays.All()) {}

int PlaysModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(plays_.size());
}

QVariant PlaysModel::data(const QModelIndex& index, int role) const {
  const bool words = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
  if (!words || !index.isValid() || index.row() >= rowCount()) return {};
  return ToQt(PlayWithInning(PlayAt(index.row())));
}

QString PlaysModel::HeadingOf(int row) const {
  const Play& play = PlayAt(row);
  if (row > 0 && PlayAt(row - 1).half == play.half) return {};
  return QStringLiteral("%1 of inning %2, %3")
      .arg(play.half % 2 == 0 ? QStringLiteral("Top") : QStringLiteral("Bottom"))
      .arg(play.half / 2 + 1)
      .arg(ToQt(SideOf(board_, SideOfBatter(board_, play)).team.value()));
}

void PlaysModel::Update() {
  std::vector<Play> now = board_.state.plays.All();
  const int before = rowCount();
  const int after = static_cast<int>(now.size());
  if (after < before) {
    beginRemoveRows({}, after, before - 1);
    plays_.resize(now.size());
    endRemoveRows();
  }
  const int common = std::min(before, after);
  for (int row = 0; row < common; ++row) {
    Play& shown = plays_[static_cast<std::size_t>(row)];
    const Play& play = now[static_cast<std::size_t>(row)];
    if (shown == play) continue;
    shown = play;
    emit dataChanged(index(row), index(row));
  }
  if (after <= before) return;
  beginInsertRows({}, before, after - 1);
  plays_ = std::move(now);
  endInsertRows();
}

PlaysList::PlaysList(PlaysModel& model, QWidget* parent) : QListView(parent) {
  Name(this, "lst_Plays", QStringLiteral("PLAYS"));
  setModel(&model);
  setItemDelegate(new PlayDelegate(this));
  setFrameShape(QFrame::NoFrame);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setResizeMode(QListView::Adjust);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAccessibleDescription(model.rowCount() == 0 ? QLatin1String(kNoPlay) : QString());
}

void PlaysList::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (model()->rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  const int gap = fontMetrics().height() / 2;
  painter.drawText(viewport()->rect().adjusted(gap, gap, -gap, -gap), kWrapped,
                   QLatin1String(kNoPlay));
}

}  // namespace dtb
