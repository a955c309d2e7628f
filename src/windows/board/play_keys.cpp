#include "windows/board/play_keys.h"

#include <QApplication>
#include <QGridLayout>
#include <QVBoxLayout>
#include <array>

#include "game/batting_order.h"
#include "game/runners.h"
#include "platform/qt/qt_keyboard.h"
#include "windows/boxes/message_box.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"
#include "windows/shared/outcome_table.h"

namespace dtb {
namespace {

using namespace look;

constexpr Place kPlatePlace{344, 208, 992, 392};
constexpr int kOutcomeRows = 8;
constexpr Place kHintPlace{610, 220, 460, 56};

struct OtherKey {
  const char* shown;
  const char* meaning;
};

constexpr std::array kOtherKeys{
    OtherKey{"S, then 1 to 4", "Stolen base by that game piece"},
    OtherKey{"N", "The batter who is due comes to bat"},
    OtherKey{"Up, Down", "Choose a row of the side at bat"},
    OtherKey{"X", "Roll the dice"},
    OtherKey{"V", "View the charts; of a new batter, from the first"},
    OtherKey{"Alt + 1 to 9", "View that chart"},
    OtherKey{"Ctrl + F12", "Show or hide the numbered dice"},
    OtherKey{"Enter", "Press, or enter a new entry"},
    OtherKey{"Tab", "The next control"},
    OtherKey{"F6", "The next panel"},
    OtherKey{"Shift + F1 to F4", "A game piece"},
    OtherKey{"O", "Options"},
    OtherKey{"Esc", "Leave a field; back to the park"},
    OtherKey{"Ctrl + Z", "Undo"},
    OtherKey{"Ctrl + Shift + Z", "Redo"},
    OtherKey{"Ctrl + N", "New game"},
    OtherKey{"?", "These keys"},
};

void AddRow(QGridLayout* grid, int row, int column, const char* shown, const char* meaning) {
  auto* key = MakeCaption(QLatin1String(shown), nullptr, Qt::AlignRight | Qt::AlignVCenter);
  QPalette palette = key->palette();
  palette.setColor(QPalette::WindowText, kAccent);
  key->setPalette(palette);
  grid->addWidget(key, row, column);
  grid->addWidget(MakeCaption(QLatin1String(meaning), nullptr), row, column + 1);
}

}  // namespace

KeyPlate::KeyPlate(Scene& scene, QWidget* parent) : Panel(parent) {
  Name(this, "KeyPlate", QStringLiteral("Keys"));
  SetFill(kSlate);
  SetLit(true);
  scene.Put(this, kPlatePlace, kBody);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 4, 12, 4);
  column->setSpacing(0);
  column->addWidget(MakeCaption(QStringLiteral("KEYS"), this, Qt::AlignCenter));
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(0);
  column->addLayout(grid, 1);
  int place = 0;
  for (const OutcomeEntry& key : kOutcomes) {
    AddRow(grid, place % kOutcomeRows, place / kOutcomeRows * 2, key.shown, key.meaning);
    ++place;
  }
  int row = 0;
  for (const OtherKey& key : kOtherKeys) AddRow(grid, row++, 4, key.shown, key.meaning);
  for (const int meanings : {1, 3, 5}) grid->setColumnStretch(meanings, 1);
  hide();
}

PlayKeys::PlayKeys(Board& board, Scene& scene, QWidget* boardWindow)
    : QObject(boardWindow),
      board_(board),
      scene_(scene),
      window_(boardWindow),
      runnerHint_(new Panel(boardWindow)) {
  Name(runnerHint_, "RunnerHint", QStringLiteral("Stolen base: which game piece, 1 to 4?"));
  runnerHint_->SetFill(kSlate);
  runnerHint_->SetLit(true);
  scene.Put(runnerHint_, kHintPlace, kLarge);
  auto* column = new QVBoxLayout(runnerHint_);
  column->addWidget(MakeCaption(runnerHint_->accessibleName(), runnerHint_, Qt::AlignCenter));
  runnerHint_->hide();
}

bool PlayKeys::Press(const QKeyEvent& event) {
  const int key = KeyByPlace(event);
  const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  const bool digit = key >= Qt::Key_1 && key <= Qt::Key_9;
  if (modifiers == Qt::AltModifier && digit && !event.isAutoRepeat()) {
    AskForRunner(false);
    emit chartWanted(key - Qt::Key_1);
    return true;
  }
  if (modifiers != Qt::NoModifier) return false;
  if (key == Qt::Key_Up || key == Qt::Key_Down) {
    emit listWanted(key);
    return true;
  }
  if (event.isAutoRepeat()) return false;
  if (key == Qt::Key_V || key == Qt::Key_X) {
    AskForRunner(false);
    if (key == Qt::Key_V) emit chartsWanted();
    if (key == Qt::Key_X) emit diceWanted();
    return true;
  }
  const BoxKey closesBoxes(key);
  if (key == Qt::Key_Question) {
    ShowPlate(plate_ == nullptr || !plate_->isVisible());
    return true;
  }
  if (key == Qt::Key_Escape) {
    ShowPlate(false);
    AskForRunner(false);
    return true;
  }
  if (runnerAsked_) {
    AskForRunner(false);
    if (key < Qt::Key_1 || key > Qt::Key_4) return PressOutcome(key);
    RecordStolenBase(board_, key - Qt::Key_1);
    return true;
  }
  if (key == Qt::Key_S) {
    AskForRunner(true);
    return true;
  }
  if (key == Qt::Key_N) {
    ChooseManDue(board_);
    return true;
  }
  return PressOutcome(key);
}

bool PlayKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) AskForRunner(false);
  if (event->type() != QEvent::KeyPress || !arrowless_.contains(watched)) return false;
  const auto* press = static_cast<QKeyEvent*>(event);
  const bool arrow = press->key() == Qt::Key_Up || press->key() == Qt::Key_Down;
  return arrow && Press(*press);
}

bool PlayKeys::PressOutcome(int key) {
  const OutcomeEntry* found = OutcomeOfKey(key);
  if (found == nullptr) return false;
  ShowPlate(false);
  emit outcomeWanted(found->outcome);
  return true;
}

void PlayKeys::ShowPlate(bool shown) {
  if (!shown && plate_ == nullptr) return;
  if (plate_ == nullptr) plate_ = new KeyPlate(scene_, window_);
  plate_->setVisible(shown);
  plate_->raise();
}

// While the question is open every press of the mouse, wherever, is its end.
void PlayKeys::AskForRunner(bool asks) {
  if (asks == runnerAsked_) return;
  runnerAsked_ = asks;
  if (asks) {
    qApp->installEventFilter(this);
  } else {
    qApp->removeEventFilter(this);
  }
  runnerHint_->setVisible(asks);
  runnerHint_->raise();
}

}  // namespace dtb
