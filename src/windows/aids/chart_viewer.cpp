#include "windows/aids/chart_viewer.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "aids/charts.h"
#include "aids/dice.h"
#include "base/paths.h"
#include "platform/qt/qt_keyboard.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_text.h"
#include "windows/aids/dice_panels.h"
#include "windows/aids/situation.h"
#include "windows/shared/bind.h"
#include "windows/shared/kept_place.h"
#include "windows/shared/look.h"
#include "windows/shared/outcome_table.h"

namespace dtb {
namespace {

using namespace look;

// The viewer is lower than the board by 500 units of 1/15 pixel.
constexpr int kLower = 33;
constexpr double kSideWidth = 264;  // layout units, as all sizes here
constexpr double kStripHeight = 36;
constexpr double kDieSize = 88;
constexpr double kSmallDieSize = 46;
constexpr double kPageMargin = 12;
constexpr int kOutcomeColumns = 3;

const ClickLabel::Shades kOther{kSlateRaised, kSlateHover, kCream};
const ClickLabel::Shades kShown{kAccent, kAccent, kInk};

}  // namespace

std::optional<ChartViewer::Choice> ChartViewer::Run(Board& board, Aids& aids, int chart,
                                                    QWidget* window) {
  ChartViewer viewer(board, aids, window);
  viewer.ShowChart(chart);
  RunInPlace(viewer, aids.platform.settings, [&] {
    viewer.resize(window->width(), std::max(1, window->height() - kLower));
    viewer.move(window->pos());
  });
  return viewer.chosen_;
}

ChartViewer::ChartViewer(Board& board, Aids& aids, QWidget* window)
    : QDialog(window),
      board_(board),
      aids_(aids),
      scale_(std::max(0.5, std::min(window->width() / kSceneWidth,
                                    (window->height() - kLower) / kSceneHeight))) {
  setObjectName(QStringLiteral("Form3"));
  setFont(Font(kBody * scale_));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(BuildStrip());
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  column->addLayout(row, 1);
  page_ = new QStackedWidget(this);
  row->addWidget(page_, 1);
  row->addWidget(BuildSide());
  picture_ = new ChartPicture(page_);
  picture_->setToolTip(QStringLiteral(
      "Click: full size and back. Wheel, + and -: zoom. 1 to 9: another chart. Esc: close."));
  page_->addWidget(picture_);
  missing_ = MakeCaption({}, page_, Qt::AlignCenter);
  missing_->setWordWrap(true);
  missing_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  missing_->setFont(Font(kLarge * scale_));
  page_->addWidget(missing_);
}

int ChartViewer::Units(double length) const { return qRound(length * scale_); }

QWidget* ChartViewer::BuildStrip() {
  auto* strip = new QWidget(this);
  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(Units(kPageMargin), Units(4), Units(kPageMargin), Units(4));
  row->setSpacing(Units(kSpace));
  for (int chart = 0; chart < kChartButtons; ++chart) {
    auto* title = new ClickLabel({}, kOther, strip);
    Name(title, qPrintable(QStringLiteral("cmd_Chart%1").arg(chart + 1)));
    title->setFont(Font(kBody * scale_, true));
    title->setFixedHeight(Units(kStripHeight));
    title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    title->setText(
        QStringLiteral("%1  %2").arg(chart + 1).arg(ToQt(ChartCaption(aids_.state, chart))));
    title->setAccessibleName(title->text());
    title->setToolTip(QStringLiteral("%1 (key %2)")
                          .arg(ToQt(ChartCaption(aids_.state, chart)).toHtmlEscaped(),
                               QString::number(chart + 1)));
    connect(title, &QAbstractButton::clicked, this, [this, chart] { ShowChart(chart); });
    row->addWidget(title, 1);
    titles_.at(static_cast<std::size_t>(chart)) = title;
  }
  return strip;
}

QWidget* ChartViewer::BuildSide() {
  auto* side = new QWidget(this);
  side->setFixedWidth(Units(kSideWidth));
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(Units(kPageMargin), Units(kPageMargin), Units(kPageMargin),
                             Units(kPageMargin));
  column->setSpacing(Units(kSpace));
  column->addWidget(BuildDice(side), 0, Qt::AlignHCenter);
  auto* roll = new QPushButton(QStringLiteral("ROLL"), side);
  Name(roll, "cmd_RollAgain", QStringLiteral("ROLL the dice"));
  roll->setToolTip(QStringLiteral("Rolls the dice again (Space)"));
  roll->setFocusPolicy(Qt::TabFocus);
  roll->setAutoDefault(false);
  roll->setFont(Font(kBody * scale_, true));
  roll->setFixedHeight(Units(44));
  connect(roll, &QPushButton::clicked, this, [this] { RollDice(aids_); });
  column->addWidget(roll);
  column->addWidget(MakeSituation(board_, scale_, side));
  column->addStretch(1);
  column->addWidget(BuildOutcomes(side));
  auto* keys = MakeCaption(
      QStringLiteral("Space rolls. 1 to 9, PgUp and PgDn: charts. Letters, and Ctrl + 1 to 4 for "
                     "hits: the result. Esc closes."),
      side, Qt::AlignLeft | Qt::AlignTop);
  keys->setWordWrap(true);
  keys->setFont(Font(kSmall * scale_));
  column->addWidget(keys);
  return side;
}

QWidget* ChartViewer::BuildDice(QWidget* side) {
  auto* dice = new QWidget(side);
  auto* grid = new QGridLayout(dice);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(Units(kSpace));
  const auto put = [&](QWidget* die, double size, int row, int column) {
    die->setFixedSize(Units(size), Units(size));
    grid->addWidget(die, row, column);
  };
  const auto plate = [&](Colour ground, Colour figures, Field<std::string>& number,
                         const char* word, double type) {
    auto* die = new NumberPlate(ground, figures, dice);
    die->setFont(Font(type * scale_, true));
    Follow<std::string>(die, number, [die, word](const std::string& text) {
      die->setText(ToQt(text));
      die->setAccessibleName(QStringLiteral("%1: %2").arg(QLatin1String(word), ToQt(text)));
    });
    return die;
  };
  AidsState& state = aids_.state;
  if (DiceInHand(state) == DiceKind::Faces) {
    // White and green above, red and yellow below, as on the board.
    constexpr std::array<std::array<int, 2>, kFaceDice> places{{{1, 0}, {0, 1}, {0, 0}}};
    for (std::size_t die = 0; die < places.size(); ++die) {
      put(MakeFaceDie(state, die, dice), kDieSize, places[die][0], places[die][1]);
    }
    put(plate({255, 255, 0}, {0, 0, 0}, state.lbl_20die, "Twenty-sided die", 2 * kHuge), kDieSize,
        1, 1);
    return dice;
  }
  for (int i = 0; i < kNumberDice; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const NumberDie& kind = kNumberDiceSet.at(at);
    put(plate(kind.colour, kind.figures, state.numbers.at(at), kind.word, kHuge), kSmallDieSize,
        i / 4, i % 4);
  }
  return dice;
}

QWidget* ChartViewer::BuildOutcomes(QWidget* side) {
  auto* outcomes = new QWidget(side);
  auto* grid = new QGridLayout(outcomes);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(Units(kSpace));
  auto* title = MakeCaption(QStringLiteral("RESULT"), outcomes);
  title->setFont(Font(kBody * scale_, true));
  grid->addWidget(title, 0, 0, 1, kOutcomeColumns);
  int place = kOutcomeColumns;
  for (const OutcomeEntry& entry : kOutcomes) {
    auto* label = new ClickLabel(QLatin1String(entry.caption), ShadesOf(entry.family), outcomes);
    Name(label, qPrintable(QStringLiteral("cmd_") + QLatin1String(entry.caption)),
         QLatin1String(entry.tip));
    label->setToolTip(QStringLiteral("%1: counts it and closes the charts (%2%3)")
                          .arg(QLatin1String(entry.tip),
                               QLatin1String(entry.key <= Qt::Key_9 ? "Ctrl + " : "key "),
                               QLatin1String(entry.shown)));
    label->setFont(Font(kLarge * scale_, true));
    label->setFixedHeight(Units(40));
    connect(label, &QAbstractButton::clicked, this,
            [this, outcome = entry.outcome] { Choose({outcome}); });
    grid->addWidget(label, place / kOutcomeColumns, place % kOutcomeColumns);
    ++place;
  }
  return outcomes;
}

void ChartViewer::ShowChart(int chart) {
  aids_.state.lastChart = chart;
  const QString caption = ToQt(ChartCaption(aids_.state, chart));
  setWindowTitle(caption);
  for (int i = 0; i < kChartButtons; ++i) {
    titles_.at(static_cast<std::size_t>(i))->SetShades(i == chart ? kShown : kOther);
  }
  const QString file = ToQt(TextOf(ChartFile(aids_.platform, chart)));
  if (picture_->Load(file)) {
    picture_->setAccessibleName(caption);
    page_->setCurrentWidget(picture_);
    picture_->setFocus(Qt::OtherFocusReason);
    return;
  }
  if (QFileInfo::exists(file)) {
    missing_->setText(QStringLiteral("The chart on this button cannot be shown.\n\n") +
                      WhyNoPicture(file));
    Name(missing_, "NoChart", QStringLiteral("The chart on this button cannot be shown"));
    page_->setCurrentWidget(missing_);
    return setFocus(Qt::OtherFocusReason);
  }
  missing_->setText(
      QStringLiteral("There is no chart on this button yet.\n\n"
                     "Put a picture of your chart here:\n%1\n\n"
                     "Its title can stand in line %2 of the file Titles.txt beside it.")
          .arg(QDir::toNativeSeparators(file))
          .arg(chart + 1));
  Name(missing_, "NoChart", QStringLiteral("There is no chart on this button yet"));
  page_->setCurrentWidget(missing_);
  setFocus(Qt::OtherFocusReason);
}

void ChartViewer::Choose(const Choice& choice) {
  chosen_ = choice;
  accept();
}

void ChartViewer::keyPressEvent(QKeyEvent* event) {
  const int key = KeyByPlace(*event);
  const auto modifiers = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  const bool digit = key >= Qt::Key_1 && key <= Qt::Key_9;
  const int chart = aids_.state.lastChart;
  if (modifiers == Qt::NoModifier && digit) return ShowChart(key - Qt::Key_1);
  if (modifiers == Qt::NoModifier && key == Qt::Key_PageUp) {
    return ShowChart((chart + kChartButtons - 1) % kChartButtons);
  }
  if (modifiers == Qt::NoModifier && key == Qt::Key_PageDown) {
    return ShowChart((chart + 1) % kChartButtons);
  }
  if (key == Qt::Key_Space) {
    if (!event->isAutoRepeat()) RollDice(aids_);
    return;
  }
  const OutcomeEntry* found = OutcomeOfKey(key);
  const bool meant = modifiers == (digit ? Qt::ControlModifier : Qt::NoModifier);
  if (found != nullptr && meant && !event->isAutoRepeat()) return Choose({found->outcome, key});
  QDialog::keyPressEvent(event);
}

}  // namespace dtb
