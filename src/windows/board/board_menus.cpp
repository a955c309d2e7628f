// The menus of the board, and what each entry of them opens.
#include <QMenu>
#include <QMenuBar>

#include "aids/charts.h"
#include "database/backups.h"
#include "game/new_game.h"
#include "game/recovery.h"
#include "game/start_up.h"
#include "windows/archive/archive_window.h"
#include "windows/board/board_window.h"
#include "windows/boxes/about_box.h"
#include "windows/browser/browser_window.h"
#include "windows/browser/copies_window.h"
#include "windows/season/day_window.h"
#include "windows/season/games_window.h"
#include "windows/season/pages_writing.h"
#include "windows/season/shelf_window.h"

namespace dtb {
namespace {

// An entry of a menu, or of the menu bar itself.
QAction* AddEntry(QWidget* menu, const char* name, const char* caption,
                  const std::function<void()>& operation) {
  auto* action = new QAction(QLatin1String(caption), menu);
  action->setObjectName(QLatin1String(name));
  QObject::connect(action, &QAction::triggered, menu, operation);
  menu->addAction(action);
  return action;
}

}  // namespace

// A window of its own waits for the person; the menu, and a screen reader, has its answer before.
std::function<void()> BoardWindow::Later(const std::function<void()>& operation) {
  return [this, operation] {
    QTimer::singleShot(0, this, [this, operation] {
      // The window may change the saved games, and which season is in use.
      ahead_.End();
      use_.Forget();
      operation();
      ahead_.Begin();
    });
  };
}

QMenu* BoardWindow::AddMenu(const char* name, const char* caption) {
  QMenu* menu = menuBar()->addMenu(QLatin1String(caption));
  menu->setObjectName(QLatin1String(name));
  menu->installEventFilter(this);
  return menu;
}

void BoardWindow::BuildMenu() {
  menuBar()->setNativeMenuBar(false);
  BuildEditMenu();
  QMenu* teams = AddMenu("mnuTeams", "Teams");
  AddEntry(teams, "mnuSeason", "From a season...",
           Later([this] { ArchiveWindow::Run(board_, season_, this); }));
  AddEntry(teams, "mnuLineUpCard", "Print line-up card...",
           Later([this] { PrintLineUpCard(board_, this); }));
  BuildSeasonMenu();
  QMenuBar* bar = menuBar();
  AddEntry(bar, "mnuStatistics", "Database",
           Later([this] { BrowserWindow::Run(board_.platform, season_, this); }));
  AddEntry(bar, "mnuEventLog", "EventLog", Later([this] { ShowLog(); }));
  AddEntry(bar, "mnuPlays", "Plays", Later([this] { ShowPlays(); }))
      ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
  AddEntry(bar, "mnuBox", "Box", Later([this] { ShowBox(); }))
      ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_B));
  AddEntry(bar, "mnuScorecard", "Scorecard", Later([this] { ShowScorecard(); }))
      ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
  AddEntry(bar, "mnu_Options", "Options", [this] {
    ToggleOptions(board_);
    if (menuBar()->hasFocus()) focusKeys_->EnterOptions();
  });
  AddEntry(bar, "About", "About", Later([this] { AboutBox::Run(board_.platform, this); }));
  BuildHelpMenu();
}

void BoardWindow::BuildEditMenu() {
  edit_ = new EditActions(board_, this);
  editMenu_ = AddMenu("mnuEdit", "Edit");
  editMenu_->addActions({edit_->undo(), edit_->redo()});
  editMenu_->addSeparator();
  AddEntry(editMenu_, "mnuNewGame", "New game", [this] {
    NewGame(board_);
  })->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_N));
  editMenu_->addSeparator();
  AddEntry(editMenu_, "mnuBringBack", kBringBack,
           Later([this] { CopiesWindow::Run(board_.platform, this); }));
}

void BoardWindow::AddTakeUp(const std::function<void()>& operation) {
  editMenu_->addSeparator();
  AddEntry(editMenu_, "mnuTakeUp", kTakeUpSetAside, operation);
}

void BoardWindow::BuildSeasonMenu() {
  QMenu* seasons = AddMenu("mnuSeasons", "Season");
  AddEntry(seasons, "mnuShelf", "Choose a season...", Later([this] {
             if (!ShelfWindow::Run(board_.platform, this)) return;
             season_ = {};  // the archive of the other season
             ShowSeasonInTitle();
           }));
  AddEntry(seasons, "mnuDay", "The day...",
           Later([this] { DayWindow::Run(board_, season_, this); }));
  AddEntry(seasons, "mnuBook", "The book of all seasons...",
           Later([this] { WriteBookOfSeasons(board_.platform, this); }));
  seasons->addSeparator();
  AddEntry(seasons, "mnuTakeIn", "Take in games...",
           Later([this] { GamesWindow::TakeIn(board_.platform, this); }));
  AddEntry(seasons, "mnuGiveOut", "Give out games...",
           Later([this] { GamesWindow::GiveOut(board_.platform, this); }));
}

void BoardWindow::BuildHelpMenu() {
  QMenu* help = AddMenu("mnuHelp", "Help");
  AddEntry(help, "mnuHelpPage", "Help page", [this] { OpenHelp(aids_); });
  AddEntry(help, "mnuKeys", "Keys (?)", [this] { keys_->ShowPlate(true); });
  AddEntry(help, "mnuRules", "Rules of the dice game", [this] { OpenRules(aids_); });
  help->addSeparator();
  AddEntry(help, "mnuAbout", "About", [this] { AboutBox::Run(board_.platform, this); });
}

}  // namespace dtb
