#include "windows/box/box_window.h"

#include <QScrollBar>
#include <QShowEvent>
#include <QVBoxLayout>
#include <array>

#include "base/program_error.h"
#include "game/history.h"
#include "platform/qt/qt_text.h"
#include "record/box_html.h"
#include "record/box_text.h"
#include "season/season_before.h"
#include "windows/box/copied_day.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr QSize kUsualSize(1080, 820);  // layout units

constexpr const char* kStyle =
    "table.box { margin-bottom: 8px; }"
    "p { margin-top: 6px; margin-bottom: 10px; }";

}  // namespace

BoxWindow::BoxWindow(Platform& platform, QWidget* parent)
    : QDialog(parent),
      platform_(platform),
      title_(MakeCaption({}, this, Qt::AlignCenter)),
      when_(MakeCaption({}, this, Qt::AlignCenter)),
      text_(new QTextBrowser(this)),
      outcome_(MakeCaption({}, this)) {
  setObjectName(QStringLiteral("Box"));
  setWindowTitle(QStringLiteral("Box score"));
  Name(title_, "lbl_Headline");
  Name(when_, "lbl_When");
  title_->setWordWrap(true);
  Name(text_, "tb_Box", QStringLiteral("Box score"));
  text_->setFrameShape(QFrame::NoFrame);
  text_->setOpenLinks(false);
  text_->document()->setDefaultStyleSheet(QLatin1String(kStyle));
  text_->document()->setDocumentMargin(12);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(look::kSpace);
  column->addWidget(title_);
  column->addWidget(when_);
  column->addWidget(text_, 1);
  BuildButtons();
}

BoxWindow::BoxWindow(Platform& platform, const GameRecord& game, QWidget* parent)
    : BoxWindow(platform, parent) {
  ShowGame(game);
  ReadBefore();
}

BoxWindow::BoxWindow(Board& board, QWidget* parent) : BoxWindow(board.platform, parent) {
  board.history->Observe([this, &board] { ShowGame(RecordOf(board)); }, WhileItLives(this));
  ShowGame(RecordOf(board));
  ReadBefore();
}

void BoxWindow::BuildButtons() {
  auto* row = new QHBoxLayout;
  row->setSpacing(look::kSpace);
  box_ = MakeButton("cmd_Box", QStringLiteral("Box score"),
                    QStringLiteral("Batters, pitchers and notes, as newspapers print them"), this);
  story_ = MakeButton("cmd_Story", QStringLiteral("Story"),
                      QStringLiteral("The game play by play, scoring plays first"), this);
  for (QPushButton* button : {box_, story_}) button->setCheckable(true);
  copy_ = MakeButton("cmd_CopyText", QStringLiteral("Copy as text"),
                     QStringLiteral("Copies it in columns of fixed width, for a forum or a letter"),
                     this);
  day_ = MakeButton("cmd_CopyDay", QStringLiteral("Copy the day"),
                    QStringLiteral("Copies the line scores, decisions and home runs of all games "
                                   "saved on the day of this one"),
                    this);
  close_ =
      MakeButton("cmd_Close", QStringLiteral("Close"), QStringLiteral("Closes the window"), this);
  row->addWidget(box_);
  row->addWidget(story_);
  row->addWidget(outcome_, 1);
  for (QPushButton* button : {copy_, day_, close_}) row->addWidget(button);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  outcome_->setWordWrap(true);
  connect(box_, &QPushButton::clicked, this, [this] { Show(View::Box); });
  connect(story_, &QPushButton::clicked, this, [this] { Show(View::Story); });
  connect(copy_, &QPushButton::clicked, this, &BoxWindow::CopyText);
  connect(day_, &QPushButton::clicked, this, &BoxWindow::CopyDay);
  connect(close_, &QPushButton::clicked, this, &QDialog::accept);
}

void BoxWindow::ShowGame(GameRecord game) {
  game_ = std::move(game);
  Tell({});
  ShowText();
}

void BoxWindow::ReadBefore() {
  reading_ = std::jthread([this, game = game_](const std::stop_token& stop) {
    SeasonToDate before;
    std::string fault;
    try {
      before = ReadSeasonBefore(platform_.database, game, stop);
    } catch (const std::exception& failure) {
      fault = failure.what();
    }
    const auto show = [this, before = std::move(before), fault] {
      before_ = before;
      ShowText();
      if (!fault.empty()) Tell(QStringLiteral("The figures of the season cannot be read."));
    };
    handOver_.Give(show);
  });
}

SeasonToDate BoxWindow::ToDate() const {
  SeasonToDate season = before_.value_or(SeasonToDate());
  season.Add(game_);
  return season;
}

BoxScore BoxWindow::Box() const { return BoxScoreOf(game_, ToDate()); }

void BoxWindow::Show(View view) {
  view_ = view;
  Tell({});
  ShowText();
  text_->verticalScrollBar()->setValue(0);
}

void BoxWindow::ShowText() {
  const BoxScore box = Box();
  title_->setText(ToQt(box.headline));
  when_->setText(ToQt(box.when));
  when_->setVisible(!box.when.empty());
  box_->setChecked(view_ == View::Box);
  story_->setChecked(view_ == View::Story);
  const int place = text_->verticalScrollBar()->value();
  if (view_ == View::Box) {
    text_->setHtml(ToQt(BoxHtml(box, BoxColumns::Two)));
  } else if (game_.plays.empty()) {
    text_->setPlainText(QStringLiteral("The plays of this game are not known."));
  } else {
    text_->setHtml(ToQt(StoryHtml(StoryOf(game_))));
  }
  text_->verticalScrollBar()->setValue(place);
}

void BoxWindow::CopyText() {
  platform_.clipboard.SetText(view_ == View::Box ? BoxText(Box()) : StoryText(StoryOf(game_)));
  Tell(view_ == View::Box ? QStringLiteral("The box score was copied to the clipboard.")
                          : QStringLiteral("The story was copied to the clipboard."));
}

void BoxWindow::CopyDay() {
  try {
    Tell(ToQt(CopiedDay(platform_, game_)));
  } catch (const ProgramError& failure) {
    platform_.boxes.Show(failure.what(), BoxIcon::Exclamation, "Box score");
  }
}

void BoxWindow::FollowBoard() {
  const std::array buttons{box_, story_, copy_, day_, close_};
  const double scale = TakeTypeOfBoard(*this, buttons, title_);
  text_->setFont(font());
  PlaceOverBoard(*this, kUsualSize, scale);
}

void BoxWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    FollowBoard();
    text_->setFocus(Qt::OtherFocusReason);
  }
  QDialog::showEvent(event);
}

}  // namespace dtb
