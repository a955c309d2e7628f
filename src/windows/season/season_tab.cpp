#include "windows/season/season_tab.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "base/text_cell.h"
#include "base/text_order.h"
#include "base/words.h"
#include "browser/grid_format.h"
#include "browser/queries.h"
#include "database/saved_games.h"
#include "season/season_words.h"
#include "windows/browser/bracket_view.h"
#include "windows/season/season_parts.h"
#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"
#include "windows/shared/text_visit.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

using namespace look;

constexpr const char* kNobody = "Nobody is chosen yet";
constexpr const char* kChooseSomebody = "Choose a team or a player on the left.";

}  // namespace

SeasonTab::SeasonTab(Browser& browser, archive::KeptSeason& kept)
    : browser_(browser), views_(new QStackedWidget), real_(new RealView(browser, kept)) {
  QBoxLayout* whole = Column(this);
  BuildStrip(whole);
  standings_ = new StandingsView(browser.platform);
  connect(standings_, &StandingsView::gameChosen, this, &SeasonTab::TellGame);
  views_->addWidget(standings_);
  views_->addWidget(BuildLeaders());
  views_->addWidget(BuildGames());
  views_->addWidget(BuildScores());
  views_->addWidget(real_);
  connect(real_, &RealView::gameWanted, this, &SeasonTab::gameWanted);
  connect(real_, &RealView::worldsRead, this, &SeasonTab::TellChosen);
  whole->addWidget(views_, 1);
  note_ = AddCaption(whole, QStringLiteral("The season appears here once its games are read."));
  Name(note_, "lbl_SeasonNote", QStringLiteral("The season"));
  Follow<std::shared_ptr<const SeasonFigures>>(
      this, browser_.state.season, [this](const std::shared_ptr<const SeasonFigures>& season) {
        if (season) ShowSeason(season);
      });
}

// The views go before the grids that they show.
SeasonTab::~SeasonTab() {
  reading_ = {};
  delete views_;
}

void SeasonTab::BuildStrip(QBoxLayout* whole) {
  QBoxLayout* strip = Strip(whole);
  auto* group = new QButtonGroup(this);
  for (const auto& [name, caption] :
       {std::pair{"cmd_Standings", "Standings"}, std::pair{"cmd_Leaders", "Leaders"},
        std::pair{"cmd_Games", "Team or player"}, std::pair{"cmd_Scores", "Scores"},
        std::pair{"cmd_Real", "Real and replayed"}}) {
    QPushButton* button = AddSwitch(strip, name, caption);
    group->addButton(button, static_cast<int>(switches_.size()));
    switches_.push_back(button);
  }
  switches_.front()->setChecked(true);
  switches_.back()->setVisible(RealView::HasArchive(browser_));
  connect(switches_.back(), &QPushButton::clicked, real_, &RealView::Open);
  connect(group, &QButtonGroup::idClicked, views_, &QStackedWidget::setCurrentIndex);
  strip->addStretch();
  auto* pages = new QPushButton(QStringLiteral("Season pages..."));
  Name(pages, "cmd_SeasonPages", pages->text());
  pages->setAutoDefault(false);
  pages->setToolTip(QStringLiteral("Writes the season as web pages into Game Rpts"));
  strip->addWidget(pages);
  connect(pages, &QPushButton::clicked, this, &SeasonTab::pagesWanted);
}

QWidget* SeasonTab::BuildLeaders() {
  auto* view = new QWidget;
  auto* places = new QGridLayout(view);
  places->setContentsMargins(0, 0, 0, 0);
  places->setSpacing(8);
  constexpr int kAcross = 4;
  constexpr int kDown = 3;
  for (const SeasonLead lead : kSeasonLeads) {
    auto* board = new SeasonLeaderBoard(lead);
    const auto place = static_cast<int>(boards_.size());
    places->addWidget(board, place / kAcross, place % kAcross);
    connect(board, &SeasonLeaderBoard::playerChosen, this, &SeasonTab::ChoosePlayer);
    boards_.push_back(board);
  }
  auto* corner = new QVBoxLayout;
  places->addLayout(corner, kDown - 1, kAcross - 2, 1, 2);
  qualified_ = new QCheckBox(QStringLiteral("Qualified players only"));
  Name(qualified_, "chk_Qualified", qualified_->text());
  qualified_->setChecked(true);
  corner->addStretch();
  corner->addWidget(qualified_);
  rule_ = MakeCaption(
      QStringLiteral("For both averages: 3.1 plate appearances, that is at-bats and walks, "
                     "or 1 inning, for each game of the player's team.\n\n"
                     "Innings are counted in thirds. "
                     "\"Aggregate Pitching\" adds them as they are stored, .33 and .67, "
                     "so its ERA may differ in the last place.\n\n"
                     "A click on a player shows his season."),
      nullptr, Qt::AlignLeft | Qt::AlignTop);
  rule_->setWordWrap(true);
  corner->addWidget(rule_);
  corner->addStretch();
  connect(qualified_, &QCheckBox::clicked, this, &SeasonTab::ShowLeaders);
  for (int column = 0; column < kAcross; ++column) places->setColumnStretch(column, 1);
  for (int row = 0; row < kDown; ++row) places->setRowStretch(row, 1);
  return view;
}

QWidget* SeasonTab::BuildGames() {
  auto* view = new QWidget;
  auto* sides = new QHBoxLayout(view);
  sides->setContentsMargins(0, 0, 0, 0);
  sides->setSpacing(12);
  auto* left = new QVBoxLayout;
  left->setSpacing(8);
  sides->addLayout(left, 1);
  search_ = new QLineEdit;
  Name(search_, "txt_SeasonName", QStringLiteral("Team or player"));
  search_->setPlaceholderText(QStringLiteral("Part of a name"));
  search_->setAccessibleDescription(search_->placeholderText());
  LeaveOnEscape(search_, [this] {
    const bool empty = search_->text().isEmpty();
    search_->clear();
    return empty;
  });
  connect(search_, &QLineEdit::textChanged, this, &SeasonTab::ListNames);
  left->addWidget(search_);
  names_ = MakeGrid("grd_Names", QStringLiteral("Teams and players of the season"), namesGrid_);
  noName_ = new NoMatch(names_);
  connect(names_, &StatGridView::cellClicked, this,
          [this](int row, int /*column*/) { ChooseListed(row); });
  left->addWidget(names_, 1);
  sides->addLayout(BuildChosen(), 3);
  return view;
}

QBoxLayout* SeasonTab::BuildChosen() {
  auto* right = new QVBoxLayout;
  right->setSpacing(8);
  QBoxLayout* head = Strip(right);
  who_ = AddCaption(head, QLatin1String(kNobody));
  Name(who_, "lbl_Chosen", QStringLiteral("Chosen"));
  head->setStretchFactor(who_, 1);
  batting_ = AddSwitch(head, "cmd_Batting", "Batting");
  pitching_ = AddSwitch(head, "cmd_Pitching", "Pitching");
  auto* roles = new QButtonGroup(this);
  for (QPushButton* button : {batting_, pitching_}) {
    roles->addButton(button);
    connect(button, &QPushButton::clicked, this, [this] {
      role_ = pitching_->isChecked() ? SeasonRole::Pitching : SeasonRole::Batting;
      if (now_.chosen) now_.chosen->role = role_;
      ReadChosen();
    });
  }
  batting_->setChecked(true);
  games_ = new SeasonGamesChart;
  right->addWidget(games_, 5);
  connect(games_, &SeasonGamesChart::gameChosen, this, &SeasonTab::TellGame);
  BuildSplits(right);
  months_ = MakeGrid("grd_Months", QStringLiteral("Divided"), monthsGrid_);
  right->addWidget(months_, 3);
  return right;
}

void SeasonTab::BuildSplits(QBoxLayout* place) {
  QBoxLayout* strip = Strip(place);
  auto* group = new QButtonGroup(this);
  for (const auto& [split, name, caption] :
       {std::tuple{SeasonSplit::Months, "cmd_ByMonth", "By month"},
        {SeasonSplit::Places, "cmd_ByPlace", "Home and away"},
        {SeasonSplit::Opponents, "cmd_ByTeam", "By team"},
        {SeasonSplit::Duels, "cmd_ByMan", "By pitcher or batter"}}) {
    QPushButton* button = AddSwitch(strip, name, caption);
    button->setChecked(split == split_);
    group->addButton(button);
    connect(button, &QPushButton::clicked, this, [this, split = split] {
      split_ = split;
      ShowSplit();
    });
  }
  strip->addStretch();
}

void SeasonTab::ShowSplit() {
  if (!now_.chosen) return monthsGrid_.Take(StatGrid(1, 1));
  const bool duels = split_ == SeasonSplit::Duels;
  const auto lines = duels ? duels_ : SplitOutings(*now_.season, *now_.chosen, outings_, split_);
  monthsGrid_.Take(GridOf(SplitTable(*now_.chosen, split_, lines)));
}

QWidget* SeasonTab::BuildScores() {
  auto* view = new QWidget;
  QBoxLayout* column = Column(view);
  sums_ = AddCaption(column, {});
  Name(sums_, "lbl_Scores", QStringLiteral("Scores"));
  auto* sides = new QHBoxLayout;
  sides->setSpacing(8);
  column->addLayout(sides, 1);
  auto* left = new QVBoxLayout;
  left->setSpacing(8);
  sides->addLayout(left, 1);
  runs_ = new SeasonBars("pic_Runs", QStringLiteral("How often a team scored so many runs"));
  runsByMonth_ =
      new SeasonBars("pic_RunsByMonth", QStringLiteral("Runs per game, both teams, by month"));
  left->addWidget(runs_, 1);
  left->addWidget(runsByMonth_, 1);
  finals_ = new SeasonFinals;
  sides->addWidget(finals_, 1);
  return view;
}

void SeasonTab::ShowSeason(std::shared_ptr<const SeasonFigures> season) {
  const Reading before = std::move(now_);
  now_ = {std::move(season)};
  const auto again = [&](const std::optional<SeasonSubject>& subject) {
    return subject ? FoundAgain(*before.season, *subject, *now_.season) : std::nullopt;
  };
  standings_->ShowSeason(now_.season);
  ShowLeaders();
  ListNames();
  ShowScores();
  real_->SetSeason(now_.season);
  if (before.chosen) {
    Choose(again(before.chosen));
    ShowChosenInList();
  }
  const std::size_t games = now_.season->games.size();
  QString note;
  if (games == 0) {
    note = QStringLiteral("The season begins with the first game that you save.");
  } else if (games == 1) {
    note = QStringLiteral("One game is saved. The lines grow with every game that you save.");
  } else {
    note = QStringLiteral(
               "%1 games. Point at a picture to read it; "
               "a click on a game opens its box score.")
               .arg(games);
  }
  if (now_.season->lonelyLines > 0) {
    note += QStringLiteral(" Left out, because the other team's line is missing: %1.")
                .arg(now_.season->lonelyLines);
  }
  if (now_.season->mixedGames > 0) {
    note += QStringLiteral(
                " With one GameID and a team in common, "
                "so that their players are not told apart: %1 games.")
                .arg(now_.season->mixedGames);
  }
  note_->setText(note);
}

void SeasonTab::ShowLeaders() {
  if (!now_.season) return;
  for (SeasonLeaderBoard* board : boards_) board->SetSeason(now_.season, qualified_->isChecked());
}

void SeasonTab::ShowScores() {
  const SeasonScores scores = CountScores(*now_.season);
  sums_->setText(ToQt(ScoresText(scores)));
  sums_->setToolTip(TipOfLines({sums_->text()}));
  finals_->SetScores(scores);
  std::vector<SeasonBars::Bar> bars;
  for (int runs = 0; runs <= kMostRunsOfTeam && scores.games > 0; ++runs) {
    const int times = scores.ofTeam.at(static_cast<std::size_t>(runs));
    const QString label = ToQt(RunsLabel(runs, kMostRunsOfTeam));
    bars.push_back(
        {label, double(times), QString::number(times),
         QStringLiteral("%1 %2: %3")
             .arg(label, QLatin1String(runs == 1 ? "run" : "runs"), ToQt(Counted(times, "time")))});
  }
  runs_->SetBars(std::move(bars));
  bars.clear();
  for (const RunsOfMonth& month : scores.months) {
    const double mean = month.runs / month.games;
    const QString figure = ToQt(RoundedQuotient(month.runs, month.games, 2));
    bars.push_back({ToQt(month.month), mean, figure,
                    QStringLiteral("%1: %2 runs per game in %3")
                        .arg(ToQt(month.month), figure, ToQt(Counted(month.games, "game")))});
  }
  runsByMonth_->SetBars(std::move(bars));
}

void SeasonTab::ListNames() {
  if (!now_.season) return;
  const LikePattern wanted("%" + EscapedForLike(FromQt(search_->text())) + "%", U'\\',
                           LikePattern::Accents::AreFound);
  std::vector<std::vector<std::string>> rows{{"Name", "Team"}};
  now_.listed.clear();
  const auto& teams = now_.season->teams;
  for (std::size_t team = 0; team < teams.size(); ++team) {
    if (!wanted.Matches(teams[team].name)) continue;
    now_.listed.push_back({static_cast<int>(team)});
    rows.push_back({teams[team].name, "whole team"});
  }
  for (std::size_t player = 0; player < now_.season->players.size(); ++player) {
    const SeasonPlayer& entry = now_.season->players[player];
    if (!wanted.Matches(entry.name) && !wanted.Matches(teams[entry.team].name)) continue;
    now_.listed.push_back({entry.team, static_cast<int>(player)});
    rows.push_back({entry.name, teams[entry.team].name});
  }
  namesGrid_.Take(GridOf(rows));
  noName_->AfterSearch(search_->text(), [this] { search_->clear(); });
}

void SeasonTab::ChoosePlayer(int player, SeasonRole role) {
  search_->clear();
  views_->setCurrentIndex(2);
  switches_.at(2)->setChecked(true);
  role_ = role;
  const auto row =
      std::ranges::find(now_.listed, player, &Listed::player) - now_.listed.begin() + 1;
  names_->SetCurrentCell(static_cast<int>(row), 1);
  ChooseListed(static_cast<int>(row));
}

void SeasonTab::ChooseListed(int row) {
  if (row < 1 || row > static_cast<int>(now_.listed.size())) return;
  const Listed& listed = now_.listed[static_cast<std::size_t>(row) - 1];
  SeasonSubject subject{listed.team, {}, listed.player < 0, role_};
  if (listed.player >= 0) {
    const SeasonPlayer& player = now_.season->players.at(static_cast<std::size_t>(listed.player));
    subject.player = player.name;
    if (!player.has(role_)) {
      subject.role = player.batting ? SeasonRole::Batting : SeasonRole::Pitching;
    }
  }
  Choose(subject);
}

void SeasonTab::Choose(const std::optional<SeasonSubject>& subject) {
  now_.chosen = subject;
  const auto player =
      std::ranges::find_if(now_.season->players, [&subject](const SeasonPlayer& one) {
        return subject && !subject->wholeTeam && one.team == subject->team &&
               one.name == subject->player;
      });
  const bool isPlayer = player != now_.season->players.end();
  // Where nobody is chosen the role is that of whoever is chosen next.
  batting_->setEnabled(!isPlayer || player->batting);
  pitching_->setEnabled(!isPlayer || player->pitching);
  if (subject) (subject->role == SeasonRole::Batting ? batting_ : pitching_)->setChecked(true);
  TellChosen();
  ReadChosen();
}

void SeasonTab::TellChosen() {
  QString who = QLatin1String(kNobody);
  if (const auto& subject = now_.chosen) {
    const std::string& team = now_.season->teams.at(static_cast<std::size_t>(subject->team)).name;
    who = ToQt(subject->wholeTeam ? team : subject->player + ", " + team);
    const QString headline = subject->wholeTeam ? real_->HeadlineOf(subject->team) : QString();
    if (!headline.isEmpty()) who += QStringLiteral(", ") + headline;
  }
  who_->setText(who);
  who_->setAccessibleName(QStringLiteral("Chosen: ") + who);
  who_->setToolTip(TipOfLines({who}));
}

void SeasonTab::ShowChosenInList() {
  for (std::size_t i = 0; i < now_.listed.size() && now_.chosen; ++i) {
    const auto& [team, player] = now_.listed[i];
    const bool whole = player < 0;
    if (team != now_.chosen->team || whole != now_.chosen->wholeTeam) continue;
    if (!whole &&
        now_.season->players.at(static_cast<std::size_t>(player)).name != now_.chosen->player) {
      continue;
    }
    return names_->SetCurrentCell(static_cast<int>(i) + 1, 1);
  }
}

void SeasonTab::ReadChosen() {
  reading_ = {};  // ends the one before
  const int number = ++asked_;
  if (!now_.chosen) {
    shown_ = number;
    ShowSplit();
    return games_->Clear(QLatin1String(kChooseSomebody));
  }
  games_->Clear(QStringLiteral("Being read"));
  reading_ = std::jthread(
      [this, number, season = now_.season, subject = *now_.chosen](const std::stop_token& stop) {
        std::vector<SeasonOuting> outings;
        std::vector<SplitLine> duels;
        std::string fault;
        try {
          outings = ReadOutings(browser_.platform.database, *season, subject, stop);
          duels = ReadDuels(browser_.platform.database, *season, subject, stop);
        } catch (const std::exception& failure) {
          fault = failure.what();
        }
        auto show = [this, number, season, subject, outings = std::move(outings),
                     duels = std::move(duels), fault]() mutable {
          if (number != asked_) return;
          shown_ = number;
          outings_ = outings;
          duels_ = std::move(duels);
          ShowSplit();
          games_->SetOutings(season, subject, std::move(outings));
          if (!fault.empty()) TellQueryFailure(browser_, fault);
        };
        handOver_.Give(std::move(show));
      });
}

void SeasonTab::TellGame(const SeasonGame& game, const SeasonFigures& season) {
  const auto nameOf = [&season](const SeasonSide& side) {
    return ToQt(season.teams.at(static_cast<std::size_t>(side.team)).name);
  };
  emit gameWanted(ToQt(game.id), nameOf(game.sides[0]), nameOf(game.sides[1]));
}

void SeasonTab::SetScale(double scale) {
  standings_->SetScale(scale);
  real_->SetScale(scale);
  for (SeasonLeaderBoard* board : boards_) board->SetType(kBody * scale);
  for (SeasonChart* chart :
       std::initializer_list<SeasonChart*>{games_, runs_, runsByMonth_, finals_}) {
    chart->SetType(kBody * scale);
  }
  for (StatGridView* grid : {names_, months_}) grid->SetScale(kBody * scale, kTwip * scale);
  for (QLabel* label : {rule_, sums_, note_}) label->setFont(Font(kBody * scale));
  qualified_->setFont(Font(kBody * scale));
  who_->setFont(Font(kLarge * scale, true));
}

}  // namespace dtb
