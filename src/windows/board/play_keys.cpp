#include "windows/board/play_keys.h"

#include <QApplication>
#include <QGridLayout>
#include <QVBoxLayout>
#include <array>

#include "game/base_running.h"
#include "game/bases.h"
#include "game/batting_order.h"
#include "game/outcomes.h"
#include "game/play_words.h"
#include "game/runners.h"
#include "platform/qt/qt_keyboard.h"
#include "windows/board/piece_view.h"
#include "windows/boxes/message_box.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"
#include "windows/shared/outcome_table.h"

namespace dtb {
namespace {

using namespace look;

constexpr Place kPlatePlace{344, 208, 992, 416};
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
    OtherKey{"Ctrl + L", "The plays so far"},
    OtherKey{"Ctrl + B", "The box score so far"},
    OtherKey{"Ctrl + K", "The scorecard"},
    OtherKey{"?", "These keys"},
};

// While the board keeps the bases; in the columns under the outcomes.
constexpr std::array kBaseKeys{
    OtherKey{"Shift + 1 to 3", "The runner on that base takes one base more"},
    OtherKey{"Ctrl + 1 to 3", "The same as a play of its own: a wild pitch, a balk"},
    OtherKey{"Shift + 4", "Who came home last stands on third after all"},
    OtherKey{"T, then 1 to 3", "The runner on that base is out"},
    OtherKey{"S, then 1 to 3", "The runner on that base steals the next"},
    OtherKey{"H", "Batter to first without an at-bat: hit by a pitch"},
    OtherKey{"A", "Batter out without an at-bat: a sacrifice"},
};

void AddRow(QGridLayout* grid, int row, int column, const char* shown, const char* meaning,
            int columns = 1) {
  auto* key = MakeCaption(QLatin1String(shown), nullptr, Qt::AlignRight | Qt::AlignVCenter);
  QPalette palette = key->palette();
  palette.setColor(QPalette::WindowText, kAccent);
  key->setPalette(palette);
  grid->addWidget(key, row, column);
  grid->addWidget(MakeCaption(QLatin1String(meaning), nullptr), row, column + 1, 1, columns);
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
  row = kOutcomeRows + 1;
  grid->addWidget(MakeCaption(QStringLiteral("KEEP THE BASES"), nullptr), row++, 1, 1, 3);
  for (const OtherKey& key : kBaseKeys) AddRow(grid, row++, 0, key.shown, key.meaning, 3);
  for (const int meanings : {1, 3, 5}) grid->setColumnStretch(meanings, 1);
  hide();
}

PlayKeys::PlayKeys(Board& board, Scene& scene, QWidget* boardWindow)
    : QObject(boardWindow),
      board_(board),
      scene_(scene),
      window_(boardWindow),
      runnerHint_(new Panel(boardWindow)) {
  Name(runnerHint_, "RunnerHint");
  runnerHint_->SetFill(kSlate);
  runnerHint_->SetLit(true);
  scene.Put(runnerHint_, kHintPlace, kLarge);
  auto* column = new QVBoxLayout(runnerHint_);
  runnerQuestion_ = MakeCaption({}, runnerHint_, Qt::AlignCenter);
  column->addWidget(runnerQuestion_);
  runnerHint_->hide();
}

bool PlayKeys::Press(const QKeyEvent& event) {
  const int key = KeyByPlace(event);
  const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  const bool digit = key >= Qt::Key_1 && key <= Qt::Key_9;
  if (modifiers == Qt::AltModifier && digit && !event.isAutoRepeat()) {
    AskForRunner(Question::None);
    emit chartWanted(key - Qt::Key_1);
    return true;
  }
  const int base = event.isAutoRepeat() ? 0 : DigitByPlace(event);
  if (PressRunner(base, event.modifiers() & ~Qt::KeypadModifier)) return true;
  if (modifiers != Qt::NoModifier) return false;
  if (key == Qt::Key_Up || key == Qt::Key_Down) {
    emit listWanted(key);
    return true;
  }
  if (event.isAutoRepeat()) return false;
  if (key == Qt::Key_V || key == Qt::Key_X) {
    AskForRunner(Question::None);
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
    AskForRunner(Question::None);
    return true;
  }
  if (asked_ != Question::None && key >= Qt::Key_1 && key <= Qt::Key_4) {
    if (Answer(key - Qt::Key_0)) return true;
  }
  AskForRunner(Question::None);
  if (key == Qt::Key_S) {
    AskForRunner(Question::Steal);
    return true;
  }
  if (KeepsBases(board_.state) && (key == Qt::Key_H || key == Qt::Key_A)) {
    emit outcomeWanted(key == Qt::Key_H ? Outcome::TakesFirst : Outcome::Sacrifice);
    return true;
  }
  if (key == Qt::Key_N) {
    ChooseBatterDue(board_);
    return true;
  }
  return PressOutcome(key);
}

// Shift or Ctrl and the number of a base: its runner goes on. The key of a digit may need Shift
// itself; without it the row counts by its place.
bool PlayKeys::PressRunner(int base, Qt::KeyboardModifiers modifiers) {
  const bool own = modifiers == Qt::ControlModifier;
  if (!KeepsBases(board_.state) || base < kFirstBase || base > kHomePlate) return false;
  if (!own && modifiers != Qt::ShiftModifier) return false;
  AskForRunner(Question::None);
  if (base == kHomePlate) {
    if (!own) HoldAtThird(board_);
    return !own;
  }
  MoveRunner(board_, base, base + 1, own ? MoveOf::ItsOwn : MoveOf::LastPlay);
  return true;
}

bool PlayKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress && asked_ != Question::None) {
    // Qt tells the press to the window first, and to the control that it belongs to then.
    if (!watched->isWidgetType()) return false;
    const bool answered = AnswerByPiece(watched);
    AskForRunner(Question::None);
    return answered;
  }
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
void PlayKeys::AskForRunner(Question question) {
  if (question == asked_) return;
  asked_ = question;
  const bool asks = question != Question::None;
  if (asks) {
    const bool bases = KeepsBases(board_.state);
    const QString text = question == Question::Out
                             ? QStringLiteral("Who is out? Click his piece, or press 1 to 3.")
                         : bases ? QStringLiteral("Stolen base: from which base, 1 to 3?")
                                 : QStringLiteral("Stolen base: which game piece, 1 to 4?");
    runnerQuestion_->setText(text);
    runnerHint_->setAccessibleName(text);
    qApp->installEventFilter(this);
  } else {
    qApp->removeEventFilter(this);
  }
  runnerHint_->setVisible(asks);
  runnerHint_->raise();
}

// False: the number means nobody.
bool PlayKeys::Answer(int number) {
  if (!KeepsBases(board_.state)) {
    AskForRunner(Question::None);
    RecordStolenBase(board_, number - 1);
    return true;
  }
  if (number > kThirdBase) return false;
  const Runner runner = RunnerOn(board_.state, number);
  if (runner.none()) {
    board_.platform.boxes.Notify(std::string("Nobody is on ") + BaseName(number) + ".");
    return true;  // the question stays
  }
  const Question question = asked_;
  AskForRunner(Question::None);
  if (question == Question::Out) {
    RecordOutcome(board_, Outcome::ThrownOut, number);
  } else if (const auto piece = PieceOf(board_.state, runner.name)) {
    RecordStolenBase(board_, *piece);
  }
  return true;
}

// A press on the piece of a runner says that he is out. False: it means something else.
bool PlayKeys::AnswerByPiece(const QObject* pressed) {
  if (asked_ != Question::Out) return false;
  for (; pressed != nullptr; pressed = pressed->parent()) {
    const auto* piece = qobject_cast<const PieceView*>(pressed);
    if (piece == nullptr) continue;
    const auto& tag = board_.state.pieces.at(static_cast<std::size_t>(piece->piece())).tag.value();
    const int base = BaseOf(board_.state, tag);
    return base > 0 && Answer(base);
  }
  return false;
}

}  // namespace dtb
