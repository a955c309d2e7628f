// The tabs of the browser that show games: one game's tables, and the season.
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>

#include "browser/box_score.h"
#include "database/kept_record.h"
#include "database/saved_games.h"
#include "real/real_pages.h"
#include "windows/box/box_window.h"
#include "windows/browser/browser_window.h"
#include "windows/scorecard/scorecard_window.h"
#include "windows/season/pages_writing.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"

namespace dtb {

using namespace look;

void BrowserWindow::BuildGameStats() {
  QVBoxLayout* page = AddTab("Game Stats");
  auto* places = new QGridLayout;
  places->setSpacing(8);
  page->addLayout(places);
  const auto add = [&](const char* name, const char* accessibleName, GridField grid, int row,
                       int column, int span) {
    StatGridView* view = AddGrid(name, accessibleName, grid, kBody);
    view->StretchAllColumns();
    // Behind the cells, the colour of a button's face.
    QPalette palette = view->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Button));
    view->setPalette(palette);
    places->addWidget(view, row, column, 1, span);
    // Before the first game the tab has nothing but a hint.
    QSizePolicy policy = view->sizePolicy();
    policy.setRetainSizeWhenHidden(false);
    view->setSizePolicy(policy);
    BindVisible(view, (state_.*grid).visible);
    return view;
  };
  AddTeamHeading("lbl_VisGame", 1, places, 0);
  auto* batting = add("MSHFlexGrid6", "Visitors' batting", &BrowserState::MSHFlexGrid6, 1, 0, 1);
  auto* pitching = add("MSHFlexGrid7", "Visitors' pitching", &BrowserState::MSHFlexGrid7, 1, 1, 1);
  lineScore_ = add("MSHFlexGrid12", "Line score", &BrowserState::MSHFlexGrid12, 2, 0, 2);
  lineScore_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lineScore_->ShowWholeRows(false);
  connect(lineScore_, &StatGridView::arranged, this, &BrowserWindow::SizeLineScore);
  AddTeamHeading("lbl_HomeGame", 2, places, 3);
  batting->LineUpWith(add("MSHFlexGrid8", "Home batting", &BrowserState::MSHFlexGrid8, 4, 0, 1));
  pitching->LineUpWith(
      add("MSHFlexGrid11", "Home pitching", &BrowserState::MSHFlexGrid11, 4, 1, 1));
  places->setColumnStretch(0, 3);
  places->setColumnStretch(1, 2);
  places->setRowStretch(1, 1);
  places->setRowStretch(4, 1);

  QHBoxLayout* strip = AddStrip(page);
  strip->addStretch(1);
  QPushButton* box = AddButton(strip, "cmd_Box", "Box score and story",
                               "The game as newspapers print it, and play by play");
  BindVisible(box, state_.MSHFlexGrid12.visible);
  connect(box, &QPushButton::clicked, this, [this] {
    if (const auto game = ShownGame()) BoxWindow(browser_.platform, *game, this).exec();
  });
  QPushButton* card = AddButton(strip, "cmd_Card", "Scorecard",
                                "The game as a scorer has it on paper, to print as well");
  BindVisible(card, state_.MSHFlexGrid12.visible);
  connect(card, &QPushButton::clicked, this, [this] {
    const auto game = ShownGame();
    if (!game) return;
    ScorecardWindow window(browser_.platform, this);
    window.ShowRecord(*game);
    window.exec();
  });

  QLabel* hint = MakeCaption(
      QStringLiteral("No game is shown yet.\n\nClick a GameID, in the last column of the tab "
                     "\"Linescores\", and its box score appears here."),
      nullptr, Qt::AlignCenter);
  Name(hint, "lbl_NoGame", hint->text());
  page->addWidget(hint, 1, Qt::AlignCenter);
  Follow<bool>(hint, state_.MSHFlexGrid12.visible, [hint](bool shown) { hint->setHidden(shown); });
}

std::optional<GameRecord> BrowserWindow::ShownGame() {
  const SavedGame shown = GameInRow(state_.MSHFlexGrid12.grid, 1);
  std::optional<GameRecord> game;
  Do([&] {
    game = ReadRecord(browser_.platform.database, shown.id, {shown.visitors, shown.home});
    if (!game) {
      browser_.platform.boxes.Show("The game " + shown.id + " is no longer in the database.",
                                   BoxIcon::Information, kBrowserTitle);
    }
  });
  return game;
}

// The header, both teams, and a scroll bar where the innings are too many.
void BrowserWindow::SizeLineScore() {
  const bool scrolls = lineScore_->WidthOfColumns() > lineScore_->viewport()->width();
  lineScore_->setFixedHeight(lineScore_->horizontalHeader()->height() +
                             2 * lineScore_->verticalHeader()->defaultSectionSize() +
                             (scrolls ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0));
}

// The team in a row of the line score, over its tables.
void BrowserWindow::AddTeamHeading(const char* name, int row, QGridLayout* places, int place) {
  QLabel* heading = MakeCaption({}, nullptr);
  Name(heading, name, QStringLiteral("Team"));
  heading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  typed_.push_back({heading, kLarge, true});
  places->addWidget(heading, place, 0, 1, 2);
  FollowAll(
      heading,
      [this, heading, row] {
        const StatGrid& lines = state_.MSHFlexGrid12.grid;
        const bool there = row < lines.rows() && lines.columns() > line_score_column::kTeam;
        const QString team =
            there ? ToQt(lines.Text(row, line_score_column::kTeam)).left(400) : QString();
        heading->setText(team);
        heading->setAccessibleName(team.isEmpty() ? QStringLiteral("Team") : team);
      },
      state_.SSTab1, state_.Text9);
}

void BrowserWindow::BuildSeason() {
  season_ = new SeasonTab(browser_, kept_);
  AddTab("Season")->addWidget(season_);
  connect(season_, &SeasonTab::gameWanted, this,
          [this](const QString& id, const QString& visitors, const QString& home) {
            Do([&] { ShowBoxScore(browser_, FromQt(id), FromQt(visitors), FromQt(home)); });
          });
  connect(season_, &SeasonTab::pagesWanted, this, [this] {
    WriteUnderProgress(browser_.platform, this, "Writing the season pages",
                       [this](const ExportProgress& progress) {
                         real::WritePagesWithReal(browser_.platform, kept_, kBrowserTitle,
                                                  progress);
                       });
  });
}

}  // namespace dtb
