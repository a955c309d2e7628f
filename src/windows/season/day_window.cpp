#include "windows/season/day_window.h"

#include <QShowEvent>
#include <algorithm>
#include <array>
#include <filesystem>

#include "archive/archive_teams.h"
#include "archive/schedule.h"
#include "base/paths.h"
#include "browser/grid_format.h"
#include "browser/opening.h"
#include "database/archive_games.h"
#include "database/kept_record.h"
#include "database/season_shelf.h"
#include "platform/qt/qt_text.h"
#include "platform/trapped.h"
#include "windows/archive/archive_window.h"
#include "windows/box/copied_day.h"
#include "windows/boxes/busy.h"
#include "windows/season/season_parts.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/kept_place.h"
#include "windows/shared/look.h"
#include "windows/shared/scene.h"

namespace dtb {
namespace {

using namespace look;

constexpr QSize kUsualDaySize(1300, 820);  // layout units; 30 teams stand in it
constexpr const char* kDayTitle = "The day";

// False: there is none, which was told.
bool HasArchive(Board& board, archive::KeptSeason& kept, QWidget* over) {
  const Platform& platform = board.platform;
  const std::filesystem::path archive = archive::TiedArchive(platform);
  std::error_code fault;
  const bool there = kept.season || (!archive.empty() && std::filesystem::exists(archive, fault));
  if (!there) {
    const std::string why =
        archive.empty() ? "This season is not tied to an archive of real games yet."
                        : "The archive of this season is not there any more:\n" + TextOf(archive);
    if (!platform.boxes.Ask({why + "\n\nDo you want to choose one?", kDayTitle, true}))
      return false;
    ArchiveWindow::Run(board, kept, over);
    return kept.season != nullptr;
  }
  ProgressPanel panel(QStringLiteral("Reading the season"), ProgressPanel::Work::Cancellable, over);
  return archive::ReadLastSeason(kept, platform,
                                 [&panel](double share) { return panel.Hear(share); });
}

}  // namespace

void DayWindow::Run(Board& board, archive::KeptSeason& kept, QWidget* over) {
  if (!HasArchive(board, kept, over)) return;
  if (kept.season->games.empty()) {
    board.platform.boxes.Show("There are no games in this archive.", BoxIcon::Information,
                              kDayTitle);
    return;
  }
  Trapped(board.platform.boxes, [&] {
    DayWindow window(board, kept, over);
    RunInPlace(window, board.platform.settings, [&] { CenterForm(&window, over); });
  });
}

DayWindow::DayWindow(Board& board, archive::KeptSeason& kept, QWidget* parent)
    : QDialog(parent), board_(board), kept_(kept), inside_(new QWidget(this)) {
  setObjectName(QStringLiteral("DayForm"));
  setWindowTitle(QLatin1String(kDayTitle) + ToQt(SeasonInTitle(board.platform)));
  {
    const BusyPointer busy;
    worlds_ = real::PairWorlds(
        std::make_shared<SeasonFigures>(ReadSeasonFigures(board.platform.database)), kept.season,
        archive::KeptForm(board.platform).names);
    ids_ = ArchiveIdsOfGames(board.platform.database, NotedArchiveGames(board.platform));
  }
  auto* around = new QVBoxLayout(this);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(inside_);
  auto* column = new QVBoxLayout(inside_);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(kSpace);
  BuildDays(column);
  BuildTables(column);
  BuildButtons(column);
  ShowDay(
      real::DayToPlay(*kept.season, archive::PlayedGames(*kept.season, board.platform), kept.club));
}

// The views go before the grids that they show.
DayWindow::~DayWindow() { delete inside_; }

void DayWindow::BuildDays(QVBoxLayout* column) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kSpace);
  column->addLayout(row);
  before_ = MakeButton("cmd_DayBefore", QStringLiteral("Day before"), QStringLiteral("Alt + Left"),
                       inside_);
  after_ = MakeButton("cmd_DayAfter", QStringLiteral("Day after"), QStringLiteral("Alt + Right"),
                      inside_);
  next_ = MakeButton("cmd_DayToPlay", QStringLiteral("Next to play"),
                     QStringLiteral("The day of the next game that is not played"), inside_);
  title_ = MakeCaption({}, inside_);
  Name(title_, "lbl_Day");
  row->addWidget(before_);
  row->addWidget(after_);
  row->addWidget(next_);
  row->addSpacing(kSpace);
  row->addWidget(title_, 1);
  before_->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
  after_->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
  const auto go = [this](QPushButton* button, int step) {
    connect(button, &QPushButton::clicked, this,
            [this, step] { ShowDay(real::DayBeside(*kept_.season, programme_.day, step)); });
  };
  go(before_, -1);
  go(after_, 1);
  connect(next_, &QPushButton::clicked, this, [this] {
    Trapped(board_.platform.boxes, [this] {
      ShowDay(real::DayToPlay(*kept_.season, archive::PlayedGames(*kept_.season, board_.platform),
                              kept_.club));
    });
  });
}

void DayWindow::BuildTables(QVBoxLayout* column) {
  auto* sides = new QHBoxLayout;
  sides->setSpacing(12);
  column->addLayout(sides, 1);
  gamesView_ = MakeGrid("grd_Day", QStringLiteral("Games of the day"), games_);
  sides->addWidget(gamesView_, 5);
  standingsView_ = MakeGrid(
      "grd_Evening", QStringLiteral("Standings in the evening, replayed and real"), standings_);
  sides->addWidget(standingsView_, 6);
  connect(gamesView_, &StatGridView::cellClicked, this, [this](int row, int cell) {
    if (cell == real::kPlayColumn + 1) Play(row);
  });
  connect(gamesView_, &StatGridView::cellDoubleClicked, this,
          [this](int row, int /*cell*/) { Play(row); });
  note_ = MakeCaption({}, inside_);
  Name(note_, "lbl_DayNote");
  note_->setWordWrap(true);
  column->addWidget(note_);
}

void DayWindow::BuildButtons(QVBoxLayout* column) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kSpace);
  column->addLayout(row);
  play_ = MakeButton("cmd_PlayGame", QStringLiteral("Play this game"),
                     QStringLiteral("Loads both teams of the chosen game onto the board"), inside_);
  copy_ = MakeButton("cmd_CopyDay", QStringLiteral("Copy the day"),
                     QStringLiteral("Copies games and standings, for a forum"), inside_);
  close_ = MakeButton("cmd_CloseDay", QStringLiteral("Close"), {}, inside_);
  told_ = MakeCaption({}, inside_);
  Name(told_, "lbl_DayTold");
  row->addWidget(play_);
  row->addWidget(told_, 1);
  row->addWidget(copy_);
  row->addWidget(close_);
  connect(play_, &QPushButton::clicked, this, [this] { Play(gamesView_->currentRow()); });
  connect(copy_, &QPushButton::clicked, this, &DayWindow::CopyDay);
  connect(close_, &QPushButton::clicked, this, &QDialog::reject);
}

void DayWindow::ShowDay(int day) {
  programme_ = real::ProgrammeOf(worlds_, ids_, day);
  const real::Moment evening{real::Moment::By::Date, day};
  both_ = real::StandingsOfBoth(worlds_, evening);
  StatGrid games = GridOf(real::ProgrammeTable(worlds_, programme_));
  games.SetColumnAlignment(3, CellAlignment::Left);
  games.SetColumnInk(real::kPlayColumn + 1, kClickableBlue);
  games_.Take(std::move(games));
  standings_.Take(GridOf(real::BothTable(both_)));
  const QString title = ToQt(real::ProgrammeTitle(programme_));
  title_->setText(title);
  note_->setText(ToQt(real::BothNote(worlds_, both_, evening)));
  told_->clear();
  before_->setEnabled(real::DayBeside(*kept_.season, day, -1) != day);
  after_->setEnabled(real::DayBeside(*kept_.season, day, 1) != day);
  const auto open = std::ranges::find_if(
      programme_.games, [](const real::DayGame& game) { return game.replayed < 0; });
  const auto row = open == programme_.games.end() ? 0 : open - programme_.games.begin();
  gamesView_->SetCurrentCell(static_cast<int>(row) + 1, 1);
}

void DayWindow::Play(int row) {
  if (row < 1 || row > std::ssize(programme_.games)) return;
  const int game = programme_.games[static_cast<std::size_t>(row) - 1].real;
  const archive::LineForm form = archive::KeptForm(board_.platform);
  if (archive::LoadChosenGame(kept_, game, form, board_)) accept();
}

void DayWindow::CopyDay() {
  Trapped(board_.platform.boxes, [this] {
    const BusyPointer busy;
    std::vector<std::string> ids;
    for (const real::DayGame& game : programme_.games) {
      if (game.replayed >= 0) ids.push_back(worlds_.replayed->games[game.replayed].id);
    }
    Platform& platform = board_.platform;
    const std::string& date = kept_.season->games[programme_.games.front().real].date;
    platform.clipboard.SetText(
        DayText(date, BoxScoresOf(platform.database, ReadRecords(platform.database, ids))) +
        real::ProgrammeText(worlds_, programme_, both_));
    told_->setText(QStringLiteral("The day was copied to the clipboard."));
  });
}

void DayWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    const std::array buttons{before_, after_, next_, play_, copy_, close_};
    const double scale = TakeTypeOfBoard(*this, buttons, title_);
    for (QLabel* label : {told_, note_}) label->setFont(font());
    for (StatGridView* grid : {gamesView_, standingsView_}) {
      grid->SetScale(kBody * scale, kTwip * scale);
    }
    PlaceOverBoard(*this, kUsualDaySize, scale);
    gamesView_->setFocus(Qt::OtherFocusReason);
  }
  QDialog::showEvent(event);
}

}  // namespace dtb
