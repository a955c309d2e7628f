#include "windows/sheet/decision_line.h"

#include <QHBoxLayout>
#include <QMenu>
#include <algorithm>

#include "game/player_name.h"
#include "platform/qt/qt_text.h"
#include "record/chosen_decisions.h"
#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

struct KindWords {
  const char* name;  // objectName
  const char* tip;
};

KindWords WordsOf(Decision kind) {
  switch (kind) {
    case Decision::Win:
      return {"cmd_Win", "The winning pitcher"};
    case Decision::Loss:
      return {"cmd_Loss", "The losing pitcher"};
    case Decision::Save:
      return {"cmd_Save", "Who saved the game"};
    case Decision::Hold:
      return {"cmd_Hold", "Who held a lead"};
    default:
      return {"cmd_BlownSave", "Who lost a lead that could be saved"};
  }
}

// One pitcher at most has it.
bool IsOfOne(Decision kind) { return kind <= Decision::Save; }

}  // namespace

DecisionLine::DecisionLine(Board& board, QWidget* parent)
    : QWidget(parent), board_(board), caption_(MakeCaption(QStringLiteral("Decisions:"), this)) {
  setObjectName(QStringLiteral("fra_Decisions"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  row->addWidget(caption_);
  for (const Decision kind : kAllDecisions) AddButton(kind, IsOfOne(kind) ? 3 : 4);
  Update();
}

void DecisionLine::AddButton(Decision kind, int stretch) {
  auto* button = new QPushButton(this);
  const auto [name, tip] = WordsOf(kind);
  Name(button, name, QLatin1String(tip));
  button->setAutoDefault(false);
  button->setFocusPolicy(Qt::TabFocus);
  button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* menu = new QMenu(button);
  menu->setObjectName(QLatin1String(name) + QStringLiteral("Menu"));
  connect(menu, &QMenu::aboutToShow, this, [this, kind, menu] { FillMenu(kind, menu); });
  button->setMenu(menu);
  buttons_.at(static_cast<std::size_t>(kind)) = {kind, button};
  static_cast<QHBoxLayout*>(layout())->addWidget(button, stretch);
}

void DecisionLine::Update() {
  game_ = RecordOf(board_);
  const bool saved = !board_.sheet.Command2_enabled.value();
  for (const Button& one : buttons_) {
    QString names;
    for (const PitcherDecision& decision : game_.decisions) {
      if (decision.decision != one.kind) continue;
      names += (names.isEmpty() ? "" : ", ") + ToQt(LastNameOf(decision.pitcher));
    }
    const QString code = QLatin1String(DecisionCode(one.kind));
    const QString whole = code + ": " + (names.isEmpty() ? QStringLiteral("-") : names);
    const int room = one.button->width() - 3 * one.button->fontMetrics().height();
    one.button->setText(
        look::ElidedText(one.button->fontMetrics(), whole, std::max(room, 40)).replace('&', "&&"));
    const QString tip = QLatin1String(WordsOf(one.kind).tip);
    one.button->setAccessibleName(tip + ": " + (names.isEmpty() ? "nobody" : names));
    one.button->setToolTip(
        (names.isEmpty() ? tip : tip + ": " + names) +
        (saved ? QStringLiteral("; the game is saved")
               : QStringLiteral("; as the plays have it, unless you choose otherwise")));
    one.button->setEnabled(!saved);
  }
}

void DecisionLine::FillMenu(Decision kind, QMenu* menu) {
  menu->clear();
  const auto has = [&](Side side, const std::string& pitcher) {
    return std::ranges::count(game_.decisions, PitcherDecision{side, pitcher, kind}) > 0;
  };
  const auto add = [&](const QString& text, bool checked, auto operation) {
    QAction* action = menu->addAction(QString(text).replace('&', "&&"));
    action->setCheckable(true);
    action->setChecked(checked);
    connect(action, &QAction::triggered, this, operation);
  };
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideRecord& own = game_.side(side);
    if (own.pitchers.empty()) continue;
    menu->addSection(ToQt(own.team));
    for (const PitcherRecord& pitcher : own.pitchers) {
      const bool on = has(side, pitcher.name);
      add(ToQt(pitcher.name), on,
          [this, kind, side, name = pitcher.name, on] { Choose(kind, side, name, !on); });
    }
  }
  menu->addSeparator();
  const bool nobody = std::ranges::count(game_.decisions, kind, &PitcherDecision::decision) == 0;
  add(QStringLiteral("Nobody"), nobody, [this, kind] { ChooseDecision(board_, kind, {}); });
  menu->addSeparator();
  QAction* again = menu->addAction(QStringLiteral("All as the plays have it"));
  again->setEnabled(!board_.sheet.ChosenDecisions.value().empty());
  connect(again, &QAction::triggered, this, [this] { ProposeDecisionsAgain(board_); });
}

void DecisionLine::Choose(Decision kind, Side side, const std::string& pitcher, bool on) {
  std::vector<PitcherDecision> chosen;
  for (const PitcherDecision& one : game_.decisions) {
    const bool same = one.side == side && one.pitcher == pitcher;
    if (one.decision == kind && !same && !IsOfOne(kind)) chosen.push_back(one);
  }
  // Who has the win, and is clicked again, keeps it.
  if (on || IsOfOne(kind)) chosen.push_back({side, pitcher, kind});
  ChooseDecision(board_, kind, chosen);
}

void DecisionLine::SetType(const QFont& font) {
  setFont(font);
  caption_->setFont(font);
  for (const Button& one : buttons_) one.button->setFont(font);
  layout()->activate();
  Update();
}

}  // namespace dtb
