#include "windows/browser/bracket_view.h"

#include <QPainter>

#include "browser/bracket.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

using namespace look;

constexpr int kRounds = 5;
constexpr int kFirstRound = 16;
constexpr int kGroup = 8;  // slots of the first round above its gap
// Shares of the distance between two slots of the first round.
constexpr double kGroupGap = 0.8;
constexpr double kSlotHeight = 0.78;
constexpr double kChampionHeight = 1.3;
// The room for the lines, as a share of a slot's width.
constexpr double kLineRoom = 0.16;

constexpr QColor kChampionBlue{128, 128, 255};
const ClickLabel::Shades kSlotShades{kBoxGrey, QColor(96, 96, 96), Qt::white};
const ClickLabel::Shades kChampionShades{kChampionBlue, QColor(104, 104, 236), Qt::white};

int SlotsIn(int round) { return kFirstRound >> round; }

// The place of a round's first slot among all.
int FirstOf(int round) { return 2 * kFirstRound - (2 * kFirstRound >> round); }

}  // namespace

BracketView::BracketView(Browser& browser, QWidget* parent) : QWidget(parent), browser_(browser) {
  ForEachSlot(browser.state,
              [this](const std::string& key, Field<std::string>& text) { AddSlot(key, text); });
}

void BracketView::AddSlot(const std::string& key, Field<std::string>& text) {
  const int index = static_cast<int>(slots_.size());
  int round = 0;
  while (round + 1 < kRounds && FirstOf(round + 1) <= index) ++round;
  const bool champion = round == kRounds - 1;
  const QString place =
      champion ? QStringLiteral("Champion")
               : QStringLiteral("Round %1, slot %2").arg(round + 1).arg(index - FirstOf(round) + 1);
  auto* slot = new ClickLabel({}, champion ? kChampionShades : kSlotShades, this);
  slot->setObjectName(ToQt(key)
                          .replace(QLatin1Char('('), QLatin1Char('['))
                          .replace(QLatin1Char(')'), QLatin1Char(']')));
  connect(slot, &ClickLabel::clicked, this, [this, &text] { PlaceInBracket(browser_, text); });
  Follow<std::string>(slot, text, [slot, place](const std::string& placed) {
    const QString shown = ToQt(placed);
    slot->setText(shown);
    slot->setShortcut({});  // an "&" in a name is no shortcut
    slot->setToolTip(shown.isEmpty() ? place + QStringLiteral(": puts the team's name here")
                                     : TipOfLines({shown}));
    slot->setAccessibleName(place + QStringLiteral(": ") +
                            (shown.isEmpty() ? QStringLiteral("empty") : shown));
  });
  slots_.push_back(slot);
}

void BracketView::SetType(double pixels) {
  for (ClickLabel* slot : slots_) slot->setFont(Font(pixels, slot == slots_.back()));
}

double BracketView::Pitch() const { return height() / (kFirstRound + kGroupGap); }

double BracketView::MiddleOf(int round, int slot) const {
  if (round > 0) return (MiddleOf(round - 1, 2 * slot) + MiddleOf(round - 1, 2 * slot + 1)) / 2;
  return (slot + 0.5 + (slot < kGroup ? 0 : kGroupGap)) * Pitch();
}

QRectF BracketView::PlaceOf(int round, int slot) const {
  const double width = this->width() / (kRounds + (kRounds - 1) * kLineRoom);
  const double height = Pitch() * (round == kRounds - 1 ? kChampionHeight : kSlotHeight);
  return {round * width * (1 + kLineRoom), MiddleOf(round, slot) - height / 2, width, height};
}

void BracketView::resizeEvent(QResizeEvent* /*event*/) {
  for (int round = 0; round < kRounds; ++round) {
    for (int slot = 0; slot < SlotsIn(round); ++slot) {
      slots_.at(FirstOf(round) + slot)->setGeometry(PlaceOf(round, slot).toRect());
    }
  }
}

void BracketView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(QPen(kEdgeBright, 2));
  for (int round = 1; round < kRounds; ++round) {
    for (int slot = 0; slot < SlotsIn(round); ++slot) {
      const QRect place = PlaceOf(round, slot).toRect();
      const QRect upper = PlaceOf(round - 1, 2 * slot).toRect();
      const QRect lower = PlaceOf(round - 1, 2 * slot + 1).toRect();
      const int bend = (upper.right() + place.left()) / 2;
      painter.drawPolyline(QPolygon{{upper.right(), upper.center().y()},
                                    {bend, upper.center().y()},
                                    {bend, lower.center().y()},
                                    {lower.right(), lower.center().y()}});
      painter.drawLine(bend, place.center().y(), place.left(), place.center().y());
    }
  }
}

}  // namespace dtb
