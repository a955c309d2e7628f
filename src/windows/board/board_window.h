// The board: the main window of the program.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <functional>

#include "aids/aids_state.h"
#include "archive/kept_season.h"
#include "game/board.h"
#include "platform/qt/qt_pictures.h"
#include "windows/board/archive_ahead.h"
#include "windows/board/edit_actions.h"
#include "windows/board/focus_keys.h"
#include "windows/board/next_step.h"
#include "windows/board/outcome_panel.h"
#include "windows/board/park_markers.h"
#include "windows/board/park_view.h"
#include "windows/board/play_keys.h"
#include "windows/board/scoreboard.h"
#include "windows/board/side_panel.h"
#include "windows/board/use_tips.h"
#include "windows/boxes/log_window.h"
#include "windows/plays/plays_window.h"
#include "windows/scorecard/scorecard_window.h"
#include "windows/shared/scene.h"
#include "windows/sheet/sheet_window.h"

namespace dtb {

class BoardWindow : public QMainWindow {
  Q_OBJECT
 public:
  BoardWindow(Board& board, Aids& aids, QtPictures& pictures);
  // The controls go before what they look at: a control that loses the focus arranges itself.
  ~BoardWindow() override;
  BoardWindow(const BoardWindow&) = delete;
  BoardWindow& operator=(const BoardWindow&) = delete;

  // Adds the entry "Resume a game set aside..." to the menu "Edit".
  void AddTakeUp(const std::function<void()>& operation);

  [[nodiscard]] QTimer& constantTimer() { return tmr_Constant_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // The menus, in board_menus.cpp.
  std::function<void()> Later(const std::function<void()>& operation);
  QMenu* AddMenu(const char* name, const char* caption);
  void BuildMenu();
  void BuildEditMenu();
  void BuildSeasonMenu();
  void BuildHelpMenu();

  void BuildScene();
  void BuildPieces();
  void StartTimers();
  void ServeNewGames(NewGames& newGames);
  void ScrollListsUp();
  void ViewCharts(int chart);
  void ShowStats();
  void ShowLog();
  void ShowPlays();
  void ShowBox();
  void ShowSeasonInTitle();
  void ShowScorecard();
  // The size and place at start: those in which the person left the window, else the launch shrink,
  // or what the screen has room for; centred, with a quarter of the free height above.
  void PlaceAtLaunch();
  void SizeMenu();
  // The scene follows the size of the park.
  void SupplementalResize();
  void LeaveMenu(QMenu* menu, const QKeyEvent& escape);
  bool eventFilter(QObject* watched, QEvent* event) override;

  Board& board_;
  Aids& aids_;
  QtPictures& pictures_;
  Scene scene_;
  ParkView* park_ = nullptr;
  ParkMarkers* markers_ = nullptr;
  NextStep* next_ = nullptr;
  SidePanel* visitors_ = nullptr;
  SidePanel* home_ = nullptr;
  Scoreboard* scoreboard_ = nullptr;
  EditActions* edit_ = nullptr;
  QMenu* editMenu_ = nullptr;
  PlayKeys* keys_ = nullptr;
  std::unique_ptr<FocusKeys> focusKeys_;
  SheetWindow* form2_ = nullptr;
  LogWindow* log_ = nullptr;
  QPointer<PlaysWindow> plays_;     // while it is open
  QPointer<ScorecardWindow> card_;  // while it is open
  archive::KeptSeason season_;
  UseTips use_{board_, season_};
  ArchiveAhead ahead_{board_.platform, season_};
  QTimer tmr_Constant_;
  QTimer tmr_F12detect_;
};

}  // namespace dtb
