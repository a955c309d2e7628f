#include "windows/season/real_view.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <algorithm>

#include "base/paths.h"
#include "base/program_error.h"
#include "browser/grid_format.h"
#include "browser/queries.h"
#include "database/archive_games.h"
#include "windows/boxes/busy.h"
#include "windows/season/season_parts.h"
#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

using namespace look;

enum class Page { Standings, Games, Leaders, Use };

QLabel* AddNote(QBoxLayout* place, const char* name) {
  QLabel* label = AddCaption(place, {});
  Name(label, name, QStringLiteral("Note"));
  label->setWordWrap(true);
  return label;
}

// The row of a text in the first column of a grid; 0: none.
int RowOf(const StatGrid& grid, const std::string& text) {
  for (int row = 1; row < grid.rows(); ++row) {
    if (grid.Text(row, 1) == text) return row;
  }
  return 0;
}

}  // namespace

RealView::RealView(Browser& browser, archive::KeptSeason& kept)
    : browser_(browser), kept_(kept), whole_(new QStackedWidget) {
  Column(this)->addWidget(whole_);
  whole_->addWidget(BuildMissing());
  whole_->addWidget(BuildWorlds());
  TellMissing({});
}

// The views go before the grids that they show.
RealView::~RealView() {
  reader_ = {};
  delete whole_;
}

bool RealView::HasArchive(const Browser& browser) {
  return !archive::TiedArchive(browser.platform).empty();
}

QWidget* RealView::BuildMissing() {
  auto* view = new QWidget;
  QBoxLayout* column = Column(view);
  column->addStretch(1);
  why_ = MakeCaption({}, nullptr, Qt::AlignCenter);
  Name(why_, "lbl_NoArchive", QStringLiteral("The archive"));
  why_->setWordWrap(true);
  column->addWidget(why_);
  QBoxLayout* strip = Strip(column);
  strip->addStretch();
  const auto add = [&](const char* name, const char* caption, auto choose) {
    auto* button = new QPushButton(QLatin1String(caption));
    Name(button, name, QLatin1String(caption));
    button->setAutoDefault(false);
    strip->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, choose] { ReadArchive(choose()); });
    return button;
  };
  const Platform& platform = browser_.platform;
  again_ = add("cmd_ReadArchive", "Read the archive",
               [&platform] { return std::optional(archive::TiedArchive(platform)); });
  add("cmd_RealZip", "Choose a zip", [&platform] { return archive::AskForZip(platform); });
  add("cmd_RealFolder", "Choose a folder", [&platform] { return archive::AskForFolder(platform); });
  strip->addStretch();
  column->addStretch(2);
  return view;
}

void RealView::TellMissing(const QString& why) {
  const QString archive = ToQt(TextOf(archive::TiedArchive(browser_.platform)));
  why_->setText(why.isEmpty() ? QStringLiteral("The real season of this season's archive\n%1\n"
                                               "is not read yet.")
                                    .arg(archive)
                              : why);
  why_->setAccessibleName(why_->text());
  whole_->setCurrentIndex(0);
}

QWidget* RealView::BuildWorlds() {
  auto* view = new QWidget;
  QBoxLayout* column = Column(view);
  QBoxLayout* strip = Strip(column);
  pages_ = new QStackedWidget;
  auto* group = new QButtonGroup(this);
  int number = 0;
  for (const auto& [name, caption] : {std::pair{"cmd_RealStandings", "Both standings"},
                                      {"cmd_RealGames", "Game by game"},
                                      {"cmd_RealLeaders", "Both leaders"},
                                      {"cmd_RealUse", "Use"}}) {
    group->addButton(AddSwitch(strip, name, caption), number);
    group->button(number)->setChecked(number == 0);
    ++number;
  }
  strip->addStretch();
  auto* moments = new QButtonGroup(this);
  for (const auto& [by, name, caption, tip] :
       {std::tuple{real::Moment::By::Games, "cmd_SameGames", "Same number of games",
                   "The real season after as many games of each team as are replayed"},
        {real::Moment::By::Date, "cmd_SameDate", "Same date",
         "Both seasons up to the last day that is replayed"}}) {
    QPushButton* button = AddSwitch(strip, name, caption);
    button->setChecked(by == moment_.by);
    button->setToolTip(QLatin1String(tip));
    moments->addButton(button);
    connect(button, &QPushButton::clicked, this, [this, by = by] {
      moment_.by = by;
      ShowMoment();
    });
  }
  auto* sides = new QHBoxLayout;
  sides->setSpacing(12);
  column->addLayout(sides, 1);
  list_ = MakeGrid("grd_RealTeams", QStringLiteral("Teams in both seasons"), teamsGrid_);
  list_->hide();
  sides->addWidget(list_, 1);
  sides->addWidget(pages_, 3);
  pages_->addWidget(BuildStandings());
  pages_->addWidget(BuildGames());
  pages_->addWidget(BuildLeaders());
  pages_->addWidget(BuildUse());
  connect(list_, &StatGridView::cellClicked, this,
          [this](int row, int /*column*/) { ChooseTeam(row, list_); });
  connect(group, &QButtonGroup::idClicked, this, [this](int page) {
    pages_->setCurrentIndex(page);
    list_->setVisible(page == static_cast<int>(Page::Games) || page == static_cast<int>(Page::Use));
  });
  note_ = AddNote(column, "lbl_RealNote");
  return view;
}

QWidget* RealView::BuildStandings() {
  auto* view = new QWidget;
  auto* sides = new QHBoxLayout(view);
  sides->setContentsMargins(0, 0, 0, 0);
  sides->setSpacing(12);
  standings_ =
      MakeGrid("grd_BothStandings", QStringLiteral("Standings of both seasons"), standingsGrid_);
  sides->addWidget(standings_, 5);
  course_ = new RealCourseChart("pic_RealCourse");
  sides->addWidget(course_, 4);
  connect(standings_, &StatGridView::cellClicked, this,
          [this](int row, int /*column*/) { ChooseTeam(row, standings_); });
  return view;
}

QWidget* RealView::BuildGames() {
  auto* view = new QWidget;
  QBoxLayout* column = Column(view);
  headline_ = AddNote(column, "lbl_RealTeam");
  headline_->setWordWrap(false);
  teamCourse_ = new RealCourseChart("pic_RealTeamCourse");
  column->addWidget(teamCourse_, 4);
  games_ =
      MakeGrid("grd_RealGames", QStringLiteral("Games of the team in both seasons"), gamesGrid_);
  column->addWidget(games_, 5);
  connect(games_, &StatGridView::cellClicked, this, [this](int row, int /*column*/) {
    if (row < 1 || row > static_cast<int>(listed_.size()) || !worlds_) return;
    const real::TeamGame& entry = listed_[static_cast<std::size_t>(row) - 1];
    if (entry.replayed < 0) return;
    const SeasonGame& game = worlds_->replayed->games[entry.replayed];
    const auto nameOf = [&](std::size_t side) {
      return ToQt(worlds_->replayed->teams[game.sides.at(side).team].name);
    };
    emit gameWanted(ToQt(game.id), nameOf(0), nameOf(1));
  });
  return view;
}

QWidget* RealView::BuildLeaders() {
  auto* view = new QWidget;
  auto* places = new QGridLayout(view);
  places->setContentsMargins(0, 0, 0, 0);
  places->setSpacing(8);
  // Batters on the left, pitchers on the right.
  std::array<int, 2> rows{};
  for (const SeasonLead lead : kSeasonLeads) {
    auto* board = new RealLeadersChart(lead);
    const std::size_t side = RoleOf(lead) == SeasonRole::Batting ? 0 : 1;
    places->addWidget(board, rows.at(side)++, static_cast<int>(side));
    boards_.push_back(board);
  }
  for (int column = 0; column < 2; ++column) places->setColumnStretch(column, 1);
  return view;
}

QWidget* RealView::BuildUse() {
  auto* view = new QWidget;
  QBoxLayout* column = Column(view);
  QBoxLayout* strip = Strip(column);
  auto* tables = new QStackedWidget;
  auto* group = new QButtonGroup(this);
  group->addButton(AddSwitch(strip, "cmd_UseBatters", "Batters"), 0);
  group->addButton(AddSwitch(strip, "cmd_UsePitchers", "Pitchers"), 1);
  group->button(0)->setChecked(true);
  strip->addStretch();
  connect(group, &QButtonGroup::idClicked, tables, &QStackedWidget::setCurrentIndex);
  column->addWidget(tables, 1);
  batters_ = new UseTable("grd_UseBatters", QStringLiteral("Use of the batters"), battersGrid_);
  pitchers_ = new UseTable("grd_UsePitchers", QStringLiteral("Use of the pitchers"), pitchersGrid_);
  tables->addWidget(batters_);
  tables->addWidget(pitchers_);
  useNote_ = AddNote(column, "lbl_UseNote");
  return view;
}

void RealView::SetSeason(std::shared_ptr<const SeasonFigures> season) {
  season_ = std::move(season);
  worlds_.reset();
  if (kept_.season) {
    ReadSaved();
  } else if (open_) {
    Open();
  }
}

void RealView::Open() {
  open_ = true;
  if (kept_.season || !season_) return;
  ReadArchive(archive::TiedArchive(browser_.platform));
}

void RealView::ReadArchive(const std::optional<std::filesystem::path>& archive) {
  if (!archive) return;
  const QString name = ToQt(TextOf(*archive));
  bool read = false;
  try {
    ProgressPanel panel(QStringLiteral("Reading the season"), ProgressPanel::Work::Cancellable,
                        this);
    read = archive::KeepSeason(kept_, *archive, browser_.platform,
                               [&panel](double share) { return panel.Hear(share); });
    if (read) archive::TieSeason(*archive, browser_.platform);
  } catch (const ProgramError& failure) {
    TellMissing(QStringLiteral("The archive of this season's real games\n%1\n"
                               "cannot be read. %2\n\nChoose it again where it is now.")
                    .arg(name, ToQt(failure.what())));
  }
  if (read || kept_.season) return ReadSaved();
}

void RealView::ReadSaved() {
  if (!season_ || !kept_.season) return;
  reader_ = {};  // ends the one before
  const int number = ++asked_;
  reader_ = std::jthread(
      [this, number, season = season_, archive = kept_.season,
       told = NotedArchiveGames(browser_.platform),
       names = archive::KeptForm(browser_.platform).names](const std::stop_token& stop) {
        real::StartsOfPitchers starts;
        real::ArchiveIds ids;
        std::string fault;
        try {
          starts = real::ReadStarts(browser_.platform.database, stop);
          ids = ArchiveIdsOfGames(browser_.platform.database, told);
        } catch (const std::exception& failure) {
          fault = failure.what();
        }
        real::BothWorlds worlds = real::PairWorlds(season, archive, names);
        auto show = [this, number, starts = std::move(starts), ids = std::move(ids),
                     worlds = std::move(worlds), fault]() mutable {
          if (number != asked_) return;
          read_ = number;
          starts_ = std::move(starts);
          ids_ = std::move(ids);
          worlds_ = std::move(worlds);
          ShowWorlds();
          if (!fault.empty()) TellQueryFailure(browser_, fault);
        };
        handOver_.Give(std::move(show));
      });
}

void RealView::ShowWorlds() {
  std::vector<std::vector<std::string>> rows{{"Team", "Games"}};
  teams_.clear();
  for (std::size_t team = 0; team < worlds_->clubs.size(); ++team) {
    const SeasonTeam& entry = worlds_->replayed->teams[team];
    if (!worlds_->Compares(static_cast<int>(team)) || entry.games.empty()) continue;
    teams_.push_back(static_cast<int>(team));
    rows.push_back({entry.name, std::to_string(entry.games.size())});
  }
  teamsGrid_.Take(GridOf(rows));
  whole_->setCurrentIndex(1);
  ShowMoment();
  emit worldsRead();
}

void RealView::ShowMoment() {
  if (!worlds_) return;
  auto both = std::make_shared<real::BothStandings>(real::StandingsOfBoth(*worlds_, moment_));
  players_ = real::PlayersOfBoth(*worlds_, moment_, starts_);
  real::AddPlayers(*both, players_);
  both_ = std::move(both);
  standingsGrid_.Take(GridOf(real::BothTable(*both_)));
  note_->setText(ToQt(real::BothNote(*worlds_, *both_, moment_)));
  note_->setToolTip(TipOfLines({note_->text()}));
  for (std::size_t i = 0; i < boards_.size(); ++i) {
    boards_[i]->SetSeasons(both_, real::UntoldOf(*worlds_, moment_, kSeasonLeads.at(i)));
  }
  if (RowOf(teamsGrid_, team_) == 0) team_ = both_->rows.empty() ? "" : TeamAt(0);
  ShowTeam();
}

std::string RealView::TeamAt(std::size_t row) const {
  return both_->replayed.teams[both_->rows.at(row).team].name;
}

void RealView::ChooseTeam(int row, const StatGridView* grid) {
  const StatGrid& names = grid == list_ ? teamsGrid_ : standingsGrid_;
  if (row < 1 || row >= names.rows()) return;
  team_ = names.Text(row, 1);
  ShowTeam();
}

void RealView::ShowTeam() {
  const auto found = std::ranges::find(worlds_->replayed->teams, team_, &SeasonTeam::name);
  const bool known = !team_.empty() && found != worlds_->replayed->teams.end();
  const int team = known ? static_cast<int>(found - worlds_->replayed->teams.begin()) : 0;
  const QString name = known ? ToQt(team_) : QString();
  const real::BothCourses courses =
      known ? real::CoursesOf(*worlds_, team) : real::BothCourses{{0}, {0}};
  course_->SetTeam(name, courses);
  teamCourse_->SetTeam(name, courses);
  headline_->setText(known ? name + QStringLiteral(", ") + HeadlineOf(team) : QString());
  listed_ = known ? real::GamesOfTeam(*worlds_, ids_, team) : std::vector<real::TeamGame>();
  gamesGrid_.Take(GridOf(real::GamesTable(listed_)));
  real::TeamUse use = known ? real::UseOfTeam(*worlds_, players_, team) : real::TeamUse{};
  useNote_->setText(
      QStringLiteral("A bar is what is replayed, the thin line what he really had by then, "
                     "the thick one his real year. Plate appearances are at-bats and walks. %1")
          .arg(ToQt(use.note)));
  batters_->SetPlayers(std::move(use.batters), SeasonRole::Batting);
  pitchers_->SetPlayers(std::move(use.pitchers), SeasonRole::Pitching);
  list_->SetCurrentCell(RowOf(teamsGrid_, team_), 1);
  standings_->SetCurrentCell(RowOf(standingsGrid_, team_), 1);
}

QString RealView::HeadlineOf(int team) const {
  if (!worlds_ || worlds_->replayed != season_) return {};
  return ToQt(real::HeadlineOf(*worlds_, team));
}

void RealView::SetScale(double scale) {
  for (SeasonChart* chart : std::initializer_list<SeasonChart*>{course_, teamCourse_}) {
    chart->SetType(kBody * scale);
  }
  for (RealLeadersChart* board : boards_) board->SetType(kBody * scale);
  for (StatGridView* grid :
       std::initializer_list<StatGridView*>{standings_, list_, games_, batters_, pitchers_}) {
    grid->SetScale(kBody * scale, kTwip * scale);
  }
  for (QLabel* label : {note_, useNote_, why_}) label->setFont(Font(kBody * scale));
  headline_->setFont(Font(kLarge * scale, true));
}

}  // namespace dtb
