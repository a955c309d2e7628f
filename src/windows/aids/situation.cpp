#include "windows/aids/situation.h"

#include <QVBoxLayout>
#include <array>

#include "game/bases.h"
#include "game/batting_order.h"
#include "game/player_name.h"
#include "platform/qt/qt_text.h"
#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/line_up_entry.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

QString Ordinal(int number) {
  const bool teens = number % 100 >= 11 && number % 100 <= 13;
  constexpr std::array<const char*, 4> endings{"th", "st", "nd", "rd"};
  const int last = number % 10;
  return QString::number(number) + QLatin1String(endings.at(teens || last > 3 ? 0 : last));
}

// Lines under each other.
class Column {
 public:
  Column(double scale, QWidget* parent) : widget_(new QWidget(parent)), scale_(scale) {
    layout_ = new QVBoxLayout(widget_);
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(0);
  }

  void Caption(const char* text) {
    layout_->addSpacing(qRound(kSmall * scale_));
    auto* caption = MakeCaption(QLatin1String(text), widget_);
    caption->setFont(Font(kSmall * scale_, true));
    QPalette palette = caption->palette();
    palette.setColor(QPalette::WindowText, kCreamDim);
    caption->setPalette(palette);
    layout_->addWidget(caption);
  }
  // A name, or a line that must stay one.
  void Name(const QString& name, double type, bool bold) {
    auto* label = new NameLabel(widget_, Qt::AlignLeft | Qt::AlignVCenter);
    label->setFont(Font(type * scale_, bold));
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    label->SetName({}, name);
    layout_->addWidget(label);
  }
  void Remark(const QString& remark) {
    if (remark.isEmpty()) return;
    auto* label = MakeCaption(remark, widget_, Qt::AlignLeft | Qt::AlignTop);
    label->setFont(Font(kLarge * scale_));
    label->setWordWrap(true);
    layout_->addWidget(label);
  }
  // A team and its runs.
  void Score(const QString& team, const QString& runs) {
    auto* row = new QHBoxLayout;
    auto* name = new NameLabel(widget_, Qt::AlignLeft | Qt::AlignVCenter);
    name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* figure = MakeCaption(runs, widget_, Qt::AlignRight | Qt::AlignVCenter);
    for (QLabel* label : {static_cast<QLabel*>(name), figure}) {
      label->setFont(Font(kBody * scale_, true));
    }
    name->SetName({}, team);
    row->addWidget(name, 1);
    row->addWidget(figure);
    layout_->addLayout(row);
  }
  [[nodiscard]] QWidget* widget() { return widget_; }

 private:
  QWidget* widget_;
  QVBoxLayout* layout_ = nullptr;
  double scale_;
};

void AddBatter(Board& board, Side side, Column& column) {
  const LineupList& list = SideOf(board, side).list;
  const auto batter = RowOfBatter(board, side);
  const auto row = batter ? batter : RowOfBatterDue(board, side);
  if (!row) return;
  const LineUpEntry entry = PartsOf(list.entries()[static_cast<std::size_t>(*row)]);
  column.Caption(batter ? "AT BAT" : "DUE");
  column.Name(entry.name, kLarge, true);
  column.Remark(entry.remark);
}

void AddPitcher(Board& board, Side side, Column& column) {
  const SideFields fields = SideOf(board, side);
  if (fields.pitcher.value().empty()) return;
  column.Caption("PITCHES");
  column.Name(ToQt(fields.pitcher.value()), kLarge, true);
  column.Remark(RemarkOf(fields.list, fields.pitcher.value()));
}

void AddPieces(Board& board, Column& column) {
  bool first = true;
  for (int piece = 0; piece < kPieces; ++piece) {
    const GamePiece& shown = board.state.pieces.at(static_cast<std::size_t>(piece));
    const std::string& name = shown.plate.value().empty() ? shown.tag.value() : shown.plate.value();
    if (shown.free() || name.empty()) continue;
    if (first) column.Caption("ON THE PIECES");
    first = false;
    column.Name(QStringLiteral("%1  %2").arg(piece + 1).arg(ToQt(PlayerNameOf(name))), kBody,
                false);
  }
}

void AddRunners(const BoardState& state, Column& column) {
  if (!AnyoneOn(state)) return;
  column.Caption("ON BASE");
  for (int base = kThirdBase; base >= kFirstBase; --base) {
    const Runner runner = RunnerOn(state, base);
    if (runner.none()) continue;
    column.Name(QStringLiteral("%1  %2").arg(base).arg(ToQt(runner.name)), kBody, false);
  }
}

}  // namespace

QString InningInWords(const BoardState& state) {
  if (!SideAtBat(state)) return QStringLiteral("Nobody is at bat yet");
  const int half = HalfInProgress(state);
  const QString outs = ToQt(state.tb_OUT.value());
  return QStringLiteral("%1 of the %2, %3 %4")
      .arg(QLatin1String(half % 2 == 0 ? "Top" : "Bottom"), Ordinal(half / 2 + 1), outs,
           QLatin1String(outs == QLatin1String("1") ? "out" : "outs"));
}

QWidget* MakeSituation(Board& board, double scale, QWidget* parent) {
  Column column(scale, parent);
  Name(column.widget(), "Situation", QStringLiteral("The game"));
  column.Name(InningInWords(board.state), kBody, true);
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board, side);
    column.Score(ToQt(fields.team.value()), ToQt(fields.score.at(kTotalRuns).text.value()));
  }
  if (const auto side = SideAtBat(board.state)) {
    AddBatter(board, *side, column);
    AddPitcher(board, Other(*side), column);
    if (KeepsBases(board.state)) {
      AddRunners(board.state, column);
    } else {
      AddPieces(board, column);
    }
  }
  return column.widget();
}

}  // namespace dtb
