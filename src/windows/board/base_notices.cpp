#include "windows/board/base_notices.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "game/base_running.h"
#include "game/bases.h"
#include "game/game_end.h"
#include "game/history.h"
#include "game/keep_bases.h"
#include "game/play_words.h"
#include "game/player_name.h"
#include "platform/qt/qt_text.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr Place kPlace{430, 222, 820, 52};

// A name of any length.
QString Short(const std::string& name) {
  constexpr qsizetype kLongest = 40;
  return ToQt(LastNameOf(name)).left(kLongest);
}

}  // namespace

BaseNotices::BaseNotices(Board& board, Scene& scene, QWidget* park) : QObject(park), board_(board) {
  const auto answer = [this](bool turnOn) {
    return [this, turnOn] {
      offering_ = false;
      AnswerOffer(board_, turnOn);
      Refresh();
    };
  };
  offer_ = Make(scene, park, "fra_Offer",
                {{"cmd_TurnOn", QStringLiteral("Turn on"),
                  QStringLiteral("Turns on KEEP THE BASES, as in the options"), answer(true)},
                 {"cmd_NotNow", QStringLiteral("Not now"),
                  QStringLiteral("Leaves the bases to you; the options have the choice, too"),
                  answer(false)}});
  another_ = Make(scene, park, "fra_AnotherOut", {});
  scored_ = Make(scene, park, "fra_Scored",
                 {{"cmd_HoldAtThird", QStringLiteral("At third"),
                   QStringLiteral("He stopped at third: takes his run back (Shift + 4)"),
                   [this] { HoldAtThird(board_); }}});
  over_ = Make(
      scene, park, "fra_GameOver",
      {{"cmd_FinalStats", QStringLiteral("STATS"),
        QStringLiteral("Opens the sheet, to prove and save the game"),
        [this] { emit statsWanted(); }},
       {"cmd_FinalClose", QStringLiteral("Close"), QStringLiteral("Closes this notice"), [this] {
          closed_ = FinalScore(board_.state);
          Refresh();
        }}});
  if (board.history != nullptr) {
    board.history->Observe([this] { Refresh(); }, WhileItLives(this));
  }
  FollowAll(
      park, [this] { Refresh(); }, board.state.cb_KeepBases);
}

BaseNotices::Notice BaseNotices::Make(Scene& scene, QWidget* park, const char* name,
                                      const std::vector<Choice>& choices) {
  Notice notice{new Panel(park), nullptr};
  Name(notice.panel, name);
  notice.panel->SetFill(kSlate);
  notice.panel->SetLit(true);
  notice.panel->hide();
  scene.Put(notice.panel, kPlace, kBody);
  notice.words = MakeCaption({}, notice.panel, Qt::AlignCenter);
  constexpr double kButton = 92;
  const double buttons = static_cast<double>(choices.size()) * (kButton + 8);
  scene.Put(notice.words, {12, 6, kPlace.width - 24 - buttons, kPlace.height - 12}, kBody);
  double left = kPlace.width - 8 - buttons;
  for (const Choice& choice : choices) {
    auto* button = new QPushButton(choice.caption, notice.panel);
    Name(button, choice.name, choice.caption);
    button->setToolTip(choice.tip);
    scene.Put(button, {left, 10, kButton, kPlace.height - 20}, kBody);
    connect(button, &QPushButton::clicked, this, choice.operation);
    left += kButton + 8;
  }
  return notice;
}

void BaseNotices::Show(const Notice& notice, bool shown, const QString& words) {
  notice.words->setText(words);
  notice.panel->setAccessibleName(words);
  if (notice.panel->isHidden() != shown) return;
  notice.panel->setVisible(shown);
  if (shown) notice.panel->raise();
}

void BaseNotices::Withdraw() {
  for (const Notice& notice : {another_, scored_}) notice.panel->hide();
}

void BaseNotices::Refresh() {
  const BoardState& state = board_.state;
  if (!offering_ && OffersToKeepBases(board_)) {
    offering_ = true;
    AnswerOffer(board_, false);  // seen once is enough
  }
  Show(offer_, offering_ && !KeepsBases(state),
       QStringLiteral("The board can keep the bases: it moves the runners and counts their runs."));
  const bool another = CanPutOutAnother(board_);
  Show(another_, another,
       another ? Short(RunnerOutIn(state.plays.Last())) +
                     QStringLiteral(" is out. If it was another runner, click his piece.")
               : QString());
  const bool over = KeepsBases(state) && IsGameOver(state);
  const std::string score = over ? FinalScore(state) : "";
  if (!over) closed_.clear();
  const bool final = over && score != closed_ && !another;
  Show(over_, final, ToQt(score));
  const std::string holds = another || final ? "" : RunnerToHold(board_);
  Show(scored_, !holds.empty(), Short(holds) + QStringLiteral(" scores. Did he stop at third?"));
}

}  // namespace dtb
