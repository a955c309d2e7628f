#include "windows/plays/plays_window.h"

#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "base/words.h"
#include "game/history.h"
#include "game/play_credits.h"
#include "platform/qt/qt_text.h"
#include "record/box_html.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr QSize kUsualSize(640, 660);  // layout units
constexpr double kRunHeight = 24;

}  // namespace

PlaysWindow::PlaysWindow(Board& board, QWidget* parent)
    : QDialog(parent),
      board_(board),
      model_(board, this),
      title_(MakeCaption(QStringLiteral("PLAYS"), this, Qt::AlignCenter)),
      list_(new PlaysList(model_, this)),
      story_(new QTextBrowser(this)),
      runs_(new Panel(this)),
      noRun_(MakeCaption({}, runs_, Qt::AlignLeft | Qt::AlignTop)),
      outcome_(MakeCaption({}, this)) {
  setObjectName(QStringLiteral("Plays"));
  setWindowTitle(QStringLiteral("Plays"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(look::kSpace);
  column->addWidget(title_);
  column->addWidget(list_, 1);
  column->addWidget(story_, 1);
  Name(story_, "tb_Story", QStringLiteral("Story"));
  story_->setFrameShape(QFrame::NoFrame);
  story_->document()->setDocumentMargin(12);
  story_->hide();
  column->addWidget(runs_);
  BuildRuns();
  BuildButtons();
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
    Tell({});
    ShowChosen();
  });
  auto* copySelected = new QShortcut(QKeySequence::Copy, this);
  connect(copySelected, &QShortcut::activated, this, [this] {
    if (asStory_->isChecked()) return story_->copy();
    QModelIndexList rows = list_->selectionModel()->selectedIndexes();
    std::sort(rows.begin(), rows.end());
    Copy(rows);
  });
  board.history->Observe([this] { Update(); }, WhileItLives(this));
  Update();
}

void PlaysWindow::BuildRuns() {
  Name(runs_, "fra_Runs", QStringLiteral("Runs of the play"));
  Name(noRun_, "lbl_NoRun");
  noRun_->setWordWrap(true);
  auto* column = new QVBoxLayout(runs_);
  column->setContentsMargins(12, look::kSpace, 12, look::kSpace);
  column->setSpacing(0);
  column->addWidget(noRun_);
  for (int number = 0; number < kMostRuns; ++number) {
    auto* line = new RunLine(number, runs_);
    const auto place = static_cast<std::size_t>(number);
    lines_.at(place) = line;
    column->addWidget(line);
    const auto decide = [this, place](auto set, bool on) {
      if (Chosen() >= 0) set(board_, static_cast<std::size_t>(Chosen()), moves_.at(place), on);
      ShowChosen();  // a game that is saved stays as it is
    };
    connect(line, &RunLine::battedInWanted, this, [decide](bool on) { decide(SetBattedIn, on); });
    connect(line, &RunLine::earnedWanted, this, [decide](bool on) { decide(SetEarned, on); });
  }
  column->addStretch();
}

void PlaysWindow::BuildButtons() {
  auto* row = new QHBoxLayout;
  row->setSpacing(look::kSpace);
  row->addWidget(outcome_, 1);
  asStory_ =
      MakeButton("cmd_Story", QStringLiteral("Story"),
                 QStringLiteral("Tells the game in plain English, scoring plays first"), this);
  asStory_->setCheckable(true);
  undo_ = MakeButton("cmd_UndoToHere", QStringLiteral("Undo to here"), {}, this);
  copy_ =
      MakeButton("cmd_Copy", QStringLiteral("Copy"),
                 QStringLiteral("Copies all plays, or the story, to the clipboard; Ctrl + C the "
                                "selected ones"),
                 this);
  close_ =
      MakeButton("cmd_Close", QStringLiteral("Close"), QStringLiteral("Closes the window"), this);
  for (QPushButton* button : {asStory_, undo_, copy_, close_}) row->addWidget(button);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  outcome_->setWordWrap(true);
  connect(asStory_, &QPushButton::clicked, this, [this] {
    Tell({});
    ShowStory();
  });
  connect(undo_, &QPushButton::clicked, this, &PlaysWindow::UndoToHere);
  connect(copy_, &QPushButton::clicked, this, [this] { Copy(AllRows()); });
  connect(close_, &QPushButton::clicked, this, &QDialog::accept);
}

void PlaysWindow::Update() {
  Tell({});
  model_.Update();
  const int rows = model_.rowCount();
  if (Chosen() < 0 && rows > 0) list_->setCurrentIndex(model_.index(rows - 1));
  copy_->setEnabled(rows > 0);
  ShowStory();
  ShowChosen();
}

void PlaysWindow::ShowStory() {
  const bool told = asStory_->isChecked();
  if (told) story_->setHtml(ToQt(StoryHtml(StoryOf(RecordOf(board_)))));
  story_->setVisible(told);
  list_->setVisible(!told);
  runs_->setVisible(!told);
  undo_->setVisible(!told);
}

void PlaysWindow::ShowChosen() {
  ShowRuns();
  ShowUndo();
}

void PlaysWindow::ShowRuns() {
  const Play play = Chosen() < 0 ? Play{} : model_.PlayAt(Chosen());
  std::size_t runs = 0;
  for (std::size_t move = 0; move < play.moves.size() && runs < lines_.size(); ++move) {
    if (play.moves[move].to != kHomePlate) continue;
    moves_.at(runs) = move;
    lines_.at(runs)->ShowRun(play.moves[move]);
    lines_.at(runs)->show();
    ++runs;
  }
  // A mark that goes takes the focus to no button.
  for (std::size_t line = runs; line < lines_.size(); ++line) {
    if (lines_.at(line)->isAncestorOf(focusWidget())) list_->setFocus(Qt::OtherFocusReason);
    lines_.at(line)->hide();
  }
  const bool unknown = play.outcome == Outcome::RunBattedIn;
  QString words;
  if (Chosen() >= 0 && runs == 0) {
    words = unknown ? QStringLiteral("The run was counted with RBI, which names no runner.")
                    : QStringLiteral("No run scores in this play.");
    if (!unknown && !play.basesKept) {
      words = QStringLiteral("The board did not keep the bases in this play.");
    }
  }
  noRun_->setText(words);
  noRun_->setVisible(runs == 0);
}

std::optional<std::size_t> PlaysWindow::StepsBack() const {
  return board_.history->StepsBackTo(static_cast<std::size_t>(Chosen()) + 1, board_);
}

void PlaysWindow::ShowUndo() {
  const int chosen = Chosen();
  const auto steps = StepsBack();
  const bool can = chosen >= 0 && steps.value_or(0) > 0;
  QString tip = QStringLiteral("There is no play to go back to");
  if (can) {
    tip = QStringLiteral("Undoes %1, until this play is the last one")
              .arg(ToQt(Counted(static_cast<long long>(*steps), "step")));
  } else if (chosen >= 0) {
    tip = steps ? QStringLiteral("This play is the last one")
                : QStringLiteral(
                      "Undo does not reach back so far: the steps after this play are not known "
                      "any more, since the program was started again");
  }
  if (!can && undo_->hasFocus()) list_->setFocus(Qt::OtherFocusReason);
  undo_->setEnabled(can);
  undo_->setToolTip(tip);
  undo_->setAccessibleDescription(tip);
}

void PlaysWindow::UndoToHere() {
  const auto steps = StepsBack();
  if (Chosen() < 0 || steps.value_or(0) == 0) return;
  board_.history->Undo(board_, *steps);
  list_->scrollTo(list_->currentIndex());
  Tell(QStringLiteral("%1 undone. Ctrl + Shift + Z redoes one.")
           .arg(ToQt(Counted(static_cast<long long>(*steps), "step"))));
}

QModelIndexList PlaysWindow::AllRows() const {
  QModelIndexList rows;
  for (int row = 0; row < model_.rowCount(); ++row) rows += model_.index(row);
  return rows;
}

void PlaysWindow::Copy(const QModelIndexList& rows) {
  if (rows.empty()) return;
  if (asStory_->isChecked()) {
    board_.platform.clipboard.SetText(StoryText(StoryOf(RecordOf(board_))));
    return Tell(QStringLiteral("The story was copied to the clipboard."));
  }
  QString text;
  for (const QModelIndex& row : rows) text += row.data().toString() + QLatin1Char('\n');
  board_.platform.clipboard.SetText(FromQt(text));
  Tell(ToQt(Counted(rows.size(), "play")) +
       (rows.size() == 1 ? QStringLiteral(" was") : QStringLiteral(" were")) +
       QStringLiteral(" copied to the clipboard."));
}

void PlaysWindow::FollowBoard() {
  const double scale = TakeTypeOfBoard(*this, std::array{asStory_, undo_, copy_, close_}, title_);
  const int height = qRound(kRunHeight * scale);
  for (RunLine* line : lines_) line->setFixedHeight(height);
  // Room for the most runs at all times, so that the list above keeps its height.
  runs_->setFixedHeight(kMostRuns * height + 2 * look::kSpace);
  PlaceOverBoard(*this, kUsualSize, scale);
}

void PlaysWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    FollowBoard();
    list_->setFocus(Qt::OtherFocusReason);
    layout()->activate();
    list_->scrollToBottom();
  }
  QDialog::showEvent(event);
}

}  // namespace dtb
