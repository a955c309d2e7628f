#include "windows/board/outcome_panel.h"

#include <array>

#include "game/outcomes.h"
#include "game/runners.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr Place kPanel{1347, 532, 320, 276};
constexpr double kWidth = 68;
constexpr double kPitch = 76;
constexpr double kHeight = 44;

enum class Family { Plain, Out, AtBat, Stats };

ClickLabel::Shades ShadesOf(Family family) {
  const QColor plain(224, 224, 224);
  switch (family) {
    case Family::Out:
      return {QColor(255, 255, 0), QColor(0, 255, 255), kInk};
    case Family::AtBat:
      return {QColor(255, 128, 128), QColor(255, 192, 192), kInk};
    case Family::Stats:
      return {plain, Qt::white, kInk};
    case Family::Plain:
      break;
  }
  return {plain, QColor(0, 255, 0), kInk};
}

struct Label {
  const char* name = "";
  const char* caption = "";
  const char* tip = "";
  Family family = Family::Plain;
  Outcome outcome = Outcome::AtBat;  // not used by SB and STATS
  double left = 0;
  double top = 0;
  double width = kWidth;
  double height = kHeight;
};

constexpr double Column(int column) { return 12 + column * kPitch; }

// Hits and the walk in one block, outs in one, the rest apart.
constexpr std::array<Label, 17> kLabels{{
    {"lbl_Single", "1B", "Single", Family::Plain, Outcome::Single, Column(0), 12},
    {"lbl_Double", "2B", "Double", Family::Plain, Outcome::Double, Column(1), 12},
    {"lbl_Triple", "3B", "Triple", Family::Plain, Outcome::Triple, Column(2), 12},
    {"lbl_Homer", "HR", "Homer", Family::Plain, Outcome::Homer, Column(3), 12},
    {"lbl_BB", "BB", "Walk", Family::Plain, Outcome::Walk, Column(0), 64, 296, 36},
    {"lbl_K", "K", "Strikeout", Family::Out, Outcome::Strikeout, Column(0), 112},
    {"lbl_GO", "GO", "Groundout", Family::Out, Outcome::Groundout, Column(1), 112},
    {"lbl_FO", "FO", "Flyout/Foulout", Family::Out, Outcome::Flyout, Column(2), 112},
    {"lbl_LO", "LO", "Lineout", Family::Out, Outcome::Lineout, Column(3), 112},
    {"lbl_PO", "PO", "Popout", Family::Out, Outcome::Popout, Column(0), 164},
    {"lbl_DP", "DP", "Double Play", Family::Out, Outcome::DoublePlay, Column(1), 164},
    {"lbl_FC", "FC", "Fielder's choice", Family::Out, Outcome::FieldersChoice, Column(2), 164},
    {"lbl_Pick", "TO", "Runner thrown out/tagged out", Family::Out, Outcome::ThrownOut, Column(3),
     164},
    {"lbl_AB", "AB", "Assign an 'At-Bat' [e.g. reached on an error]", Family::AtBat, Outcome::AtBat,
     Column(0), 220},
    {"lbl_RBI", "RBI", "Run batted in", Family::Plain, Outcome::RunBattedIn, Column(1), 220},
    {"lbl_SB", "SB", "Stolen base", Family::Plain, Outcome::AtBat, Column(2), 220},
    {"lbl_STATS", "STATS", "", Family::Stats, Outcome::AtBat, Column(3), 220},
}};

}  // namespace

OutcomePanel::OutcomePanel(Board& board, Scene& scene, QWidget* parent)
    : DraggablePanel(scene, parent) {
  Name(this, "pb_Res", QStringLiteral("Outcomes"));
  setToolTip(QStringLiteral("CTRL + Left Click to drag controls"));
  scene.Put(this, kPanel);
  for (const Label& label : kLabels) {
    auto* button = new ClickLabel(QLatin1String(label.caption), ShadesOf(label.family), this);
    const bool tip = *label.tip != '\0';
    Name(button, label.name, QLatin1String(tip ? label.tip : label.caption));
    button->setToolTip(QLatin1String(label.tip));
    scene.Put(button, {label.left, label.top, label.width, label.height}, kLarge, true);
    const std::string_view name = label.name;
    if (name == "lbl_SB") {
      connect(button, &QAbstractButton::clicked, this, [&board] { ExplainStolenBase(board); });
    } else if (name == "lbl_STATS") {
      connect(button, &QAbstractButton::clicked, this, &OutcomePanel::statsWanted);
    } else {
      connect(button, &QAbstractButton::clicked, this,
              [&board, outcome = label.outcome] { RecordOutcome(board, outcome); });
    }
  }
  Follow<bool>(this, board.state.chk_Ctrls, [this](bool hidden) { setVisible(!hidden); });
}

}  // namespace dtb
