#include "windows/season/games_window.h"

#include <QShowEvent>
#include <QVBoxLayout>
#include <array>

#include "base/words.h"
#include "platform/qt/qt_text.h"
#include "platform/trapped.h"
#include "windows/application.h"
#include "windows/boxes/busy.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr QSize kUsualGamesSize(640, 620);  // layout units

// The chosen games; none where the person cancelled.
std::vector<GameIdentity> Choose(const char* title, const char* wish,
                                 const std::vector<GameIdentity>& games, QWidget* over) {
  if (games.empty()) return {};
  GamesWindow window(QLatin1String(title), QLatin1String(wish), games, over);
  const Application::Net net;
  if (window.exec() != QDialog::Accepted) return {};
  return window.Chosen();
}

}  // namespace

void GamesWindow::TakeIn(Platform& platform, QWidget* over) {
  OthersGames others;
  {
    const BusyPointer busy;
    others = AskForOthersGames(platform);
  }
  others.games = Choose(kTakeInTitle, "Take in", others.games, over);
  if (others.games.empty()) return;
  const BusyPointer busy;
  dtb::TakeIn(platform, others);
}

void GamesWindow::GiveOut(Platform& platform, QWidget* over) {
  std::vector<GameIdentity> games;
  Trapped(platform.boxes, [&] {
    const BusyPointer busy;
    games = IdentitiesOf(platform.database);
    if (games.empty()) {
      platform.boxes.Show("No game is saved in this season yet.", BoxIcon::Information,
                          kGiveOutTitle);
    }
  });
  games = Choose(kGiveOutTitle, "Give out...", games, over);
  if (games.empty()) return;
  const BusyPointer busy;
  dtb::GiveOut(platform, games);
}

GamesWindow::GamesWindow(const QString& title, const QString& wish, std::vector<GameIdentity> games,
                         QWidget* parent)
    : QDialog(parent),
      games_(std::move(games)),
      wish_(wish),
      title_(MakeCaption({}, this, Qt::AlignCenter)),
      list_(new QListWidget(this)),
      all_(MakeButton("cmd_All", QStringLiteral("All"), {}, this)),
      none_(MakeButton("cmd_None", QStringLiteral("None"), {}, this)),
      do_(MakeButton("cmd_Do", wish, {}, this)),
      cancel_(MakeButton("cmd_Cancel", QStringLiteral("Cancel"), {}, this)) {
  setObjectName(QStringLiteral("GamesForm"));
  setWindowTitle(title);
  Name(title_, "lbl_Games");
  Name(list_, "lst_Games", QStringLiteral("Games"));
  for (const GameIdentity& game : games_) {
    auto* item = new QListWidgetItem(ToQt(GameLine(game)), list_);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Checked);
  }
  list_->setFrameShape(QFrame::NoFrame);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(look::kSpace);
  column->addWidget(title_);
  column->addWidget(list_, 1);
  auto* row = new QHBoxLayout;
  row->setSpacing(look::kSpace);
  column->addLayout(row);
  for (QPushButton* button : {all_, none_}) row->addWidget(button);
  row->addStretch(1);
  for (QPushButton* button : {do_, cancel_}) row->addWidget(button);
  connect(all_, &QPushButton::clicked, this, [this] { CheckAll(Qt::Checked); });
  connect(none_, &QPushButton::clicked, this, [this] { CheckAll(Qt::Unchecked); });
  connect(do_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
  connect(list_, &QListWidget::itemChanged, this, &GamesWindow::CountChosen);
  CountChosen();
}

std::vector<GameIdentity> GamesWindow::Chosen() const {
  std::vector<GameIdentity> chosen;
  for (int row = 0; row < list_->count(); ++row) {
    if (list_->item(row)->checkState() != Qt::Checked) continue;
    chosen.push_back(games_[static_cast<std::size_t>(row)]);
  }
  return chosen;
}

void GamesWindow::CheckAll(Qt::CheckState state) {
  for (int row = 0; row < list_->count(); ++row) list_->item(row)->setCheckState(state);
}

void GamesWindow::CountChosen() {
  const auto chosen = static_cast<long long>(Chosen().size());
  title_->setText(
      ToQt(Counted(std::ssize(games_), "game") + ", " + std::to_string(chosen) + " chosen"));
  do_->setEnabled(chosen > 0);
}

void GamesWindow::FollowBoard() {
  const double scale = TakeTypeOfBoard(*this, std::array{all_, none_, do_, cancel_}, title_);
  list_->setFont(font());
  PlaceOverBoard(*this, kUsualGamesSize, scale);
}

void GamesWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    FollowBoard();
    list_->setFocus(Qt::OtherFocusReason);
  }
  QDialog::showEvent(event);
}

}  // namespace dtb
