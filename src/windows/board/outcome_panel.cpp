#include "windows/board/outcome_panel.h"

#include <QEvent>
#include <array>
#include <utility>

#include "game/runners.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"
#include "windows/shared/outcome_table.h"
#include "windows/shared/text_visit.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

using namespace look;

constexpr Place kOutcomePanel{1347, 532, 320, 276};
constexpr double kWidth = 68;
constexpr double kPitch = 76;
constexpr double kHeight = 44;

constexpr Place Cell(int column, double top) {
  return {12 + column * kPitch, top, kWidth, kHeight};
}

// Hits and the walk in one block, outs in one, the rest apart; in the order of kOutcomes.
constexpr std::array<Place, kOutcomes.size()> kPlaces{
    Cell(0, 12),  Cell(1, 12),  Cell(2, 12),  Cell(3, 12),  {12, 64, 296, 36},
    Cell(0, 112), Cell(1, 112), Cell(2, 112), Cell(3, 112), Cell(0, 164),
    Cell(1, 164), Cell(2, 164), Cell(3, 164), Cell(0, 220), Cell(1, 220)};
constexpr Place kStolenBase = Cell(2, 220);
constexpr Place kStats = Cell(3, 220);

}  // namespace

OutcomePanel::OutcomePanel(Board& board, NextStep& next, Scene& scene, QWidget* parent)
    : DraggablePanel(scene, parent), board_(board) {
  Name(this, "pb_Res", QStringLiteral("Outcomes"));
  setToolTip(QStringLiteral("CTRL + Left Click to drag controls"));
  scene.Put(this, kOutcomePanel);
  const auto add = [&](const char* name, const char* caption, const QString& tip,
                       const QString& key, const ClickLabel::Shades& shades, const Place& place) {
    auto* button = new ClickLabel(QLatin1String(caption), shades, this);
    Name(button, name, QLatin1String(caption) + QStringLiteral(", ") + tip);
    button->setToolTip(key.isEmpty() ? tip : TipWithKey(tip, key));
    scene.Put(button, place, kLarge, true);
    return button;
  };
  for (std::size_t i = 0; i < kOutcomes.size(); ++i) {
    const OutcomeEntry& entry = kOutcomes[i];
    auto* button = add(entry.name, entry.caption, QLatin1String(entry.tip),
                       QLatin1String(entry.shown), ShadesOf(entry.family), kPlaces[i]);
    button->installEventFilter(this);
    connect(button, &QAbstractButton::clicked, this,
            [this, button, &next, outcome = entry.outcome] {
              if (IsSecondHalf(button)) return;
              // A run is a figure of the cell, so it leaves the person there.
              if (outcome != Outcome::RunBattedIn) EndTextVisit(this);
              const std::size_t before = board_.log.text().size();
              next.Record(outcome);
              recorded_ = board_.log.text().size() > before;
            });
  }
  auto* stolenBase =
      add("lbl_SB", "SB", QStringLiteral("Stolen base"),
          QStringLiteral("S, then the piece, 1 to 4"), ShadesOf(OutcomeFamily::Plain), kStolenBase);
  connect(stolenBase, &QAbstractButton::clicked, this, [&board] { ExplainStolenBase(board); });
  auto* stats = add("lbl_STATS", "STATS", QStringLiteral("Opens the statistics sheet"), {},
                    {kButtonGrey, Qt::white, kInk}, kStats);
  connect(stats, &QAbstractButton::clicked, this, &OutcomePanel::statsWanted);
  Follow<bool>(this, board.state.chk_Ctrls, [this](bool hidden) { setVisible(!hidden); });
}

// Where no box catches the second half of a double click, it is swallowed here: it records once.
bool OutcomePanel::IsSecondHalf(const QObject* button) {
  if (std::exchange(doubled_, nullptr) != button) return false;
  if (recorded_) board_.platform.boxes.Confirm("once", board_.counting);
  return true;
}

bool OutcomePanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) doubled_ = nullptr;
  if (event->type() == QEvent::MouseButtonDblClick) doubled_ = watched;
  return false;
}

}  // namespace dtb
