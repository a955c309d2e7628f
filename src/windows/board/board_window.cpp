#include "windows/board/board_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

#include "aids/charts.h"
#include "aids/dice.h"
#include "archive/kept_season.h"
#include "base/version.h"
#include "database/season_shelf.h"
#include "game/constant_update.h"
#include "game/new_game.h"
#include "game/recovery.h"
#include "game/start_up.h"
#include "platform/qt/qt_text.h"
#include "teams/pitchers.h"
#include "windows/aids/chart_viewer.h"
#include "windows/aids/dice_panels.h"
#include "windows/application.h"
#include "windows/board/base_notices.h"
#include "windows/board/base_targets.h"
#include "windows/board/base_tracker.h"
#include "windows/board/options_panel.h"
#include "windows/board/piece_view.h"
#include "windows/box/box_window.h"
#include "windows/boxes/busy.h"
#include "windows/boxes/message_box.h"
#include "windows/shared/bind.h"
#include "windows/shared/kept_place.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr int kConstantInterval = 100;  // milliseconds
// The smallest board whose letters can still be read, as a share of the scene.
constexpr double kSmallestScale = 0.42;

}  // namespace

BoardWindow::BoardWindow(Board& board, Aids& aids, QtPictures& pictures)
    : board_(board), aids_(aids), pictures_(pictures), scene_(kSceneWidth, kSceneHeight) {
  setObjectName(QStringLiteral("Form1"));
  ShowSeasonInTitle();
  BuildMenu();
  BuildScene();
  log_ = new LogWindow(board.log, this);
  form2_ = new SheetWindow(board, aids.state.Picture1, pictures, this);
  form2_->addActions({edit_->undo(), edit_->redo()});
  // Else Qt would give the focus to the first button, and an Enter would press it.
  park_->setFocus(Qt::OtherFocusReason);
  setMinimumSize(qRound(kSceneWidth * kSmallestScale), qRound(kSceneHeight * kSmallestScale));
  // What the focus leaves without a successor, the park takes: nothing is pressed by surprise
  // there. From a control that is hidden, Qt would take it to the next one, a LOAD perhaps.
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
    const bool left = now == nullptr && focusWidget() == nullptr;
    const bool hidden = now != nullptr && before != nullptr && park_->isAncestorOf(before) &&
                        !before->isVisible() && now->window() == this;
    if (left || hidden) park_->setFocus(Qt::OtherFocusReason);
  });
  PlaceAtLaunch();
  StartTimers();
  connect(&ahead_, &ArchiveAhead::known, this, [this] { use_.Read(); });
  ahead_.Begin();
  if (board.newGames != nullptr) ServeNewGames(*board.newGames);
}

void BoardWindow::ServeNewGames(NewGames& newGames) {
  newGames.nextOffer = [this] { return archive::NextGameOffer(season_, board_).value_or(""); };
  newGames.loadNext = [this] {
    ahead_.End();
    bool read = false;
    {
      ProgressPanel panel(QStringLiteral("Reading the season"), ProgressPanel::Work::Cancellable,
                          park_);
      read = archive::ReadLastSeason(season_, board_.platform,
                                     [&panel](double share) { return panel.Hear(share); });
    }
    if (read) archive::LoadNextGame(season_, board_, Always);
    ahead_.Begin();
  };
  newGames.begun = [this] {
    if (form2_->isVisible()) form2_->reject();
    if (plays_ != nullptr) plays_->reject();
    park_->setFocus(Qt::OtherFocusReason);
  };
}

BoardWindow::~BoardWindow() {
  tmr_Constant_.stop();
  tmr_F12detect_.stop();
  delete card_;
  delete form2_;
  delete log_;
  delete takeCentralWidget();
}

void BoardWindow::StartTimers() {
  tmr_Constant_.setParent(this);
  tmr_Constant_.setObjectName(QStringLiteral("tmr_Constant"));
  tmr_F12detect_.setParent(this);
  tmr_F12detect_.setObjectName(QStringLiteral("tmr_F12detect"));
  connect(&tmr_Constant_, &QTimer::timeout, this, [this] {
    scoreboard_->AlignExtraInnings();
    RefreshPitcherPhotos(board_);
  });
  tmr_Constant_.start(kConstantInterval);
  connect(&tmr_F12detect_, &QTimer::timeout, this, [this] { DetectF12(aids_); });
  tmr_F12detect_.start(kF12Interval);
}

void BoardWindow::BuildScene() {
  park_ = new ParkView(this);
  park_->installEventFilter(this);
  setCentralWidget(park_);
  Follow<Picture>(park_, aids_.state.Picture1, [this](const Picture& park) {
    if (!park.empty()) park_->LoadPark(ToQt(park.path));
  });
  connect(park_, &ParkView::pointerMoved, this, [this] { ScrollListsUp(); });
  connect(park_, &ParkView::unreadable, this, [this](const QString& file) {
    board_.platform.boxes.Show(FromQt(WhyNoPicture(file)), BoxIcon::Warning, "BALLPARKS");
  });
  next_ = new NextStep(board_, park_);
  visitors_ = new SidePanel(board_, Side::Visitors, *next_, pictures_, scene_, park_);
  scoreboard_ = new Scoreboard(board_, aids_, pictures_, scene_, park_);
  connect(scoreboard_, &Scoreboard::chartWanted, this, [this](int chart) { ViewCharts(chart); });
  home_ = new SidePanel(board_, Side::Home, *next_, pictures_, scene_, park_);
  for (const auto& [side, panel] : {std::pair{Side::Visitors, visitors_}, {Side::Home, home_}}) {
    panel->list().SetUse(
        [this, side = side](const QString& player) { return use_.Of(side, player); });
  }
  auto* outcomes = new OutcomePanel(board_, *next_, scene_, park_);
  connect(outcomes, &OutcomePanel::statsWanted, this, [this] { ShowStats(); });
  BuildPieces();
  auto* options = new OptionsPanel(board_, aids_, scene_, park_);
  new FaceDicePanel(aids_, scene_, park_);
  new NumberDicePanel(aids_, scene_, park_);
  new BaseTracker(board_, scene_, park_);
  markers_ = new ParkMarkers(aids_, scene_, park_);
  connect(options, &OptionsPanel::parkPlacesWanted, markers_, &ParkMarkers::Open);
  keys_ = new PlayKeys(board_, scene_, park_);
  connect(next_, &NextStep::runnerWanted, keys_, &PlayKeys::AskWhoIsOut);
  auto* notices = new BaseNotices(board_, scene_, park_);
  connect(notices, &BaseNotices::statsWanted, this, [this] { ShowStats(); });
  connect(next_, &NextStep::recording, notices, &BaseNotices::Withdraw);
  connect(next_, &NextStep::recorded, notices, &BaseNotices::Refresh);
  focusKeys_ = std::make_unique<FocusKeys>(park_, [this] { ToggleOptions(board_); });
  for (auto* button : park_->findChildren<QAbstractButton*>()) {
    // The arrows move a piece over the park.
    if (qobject_cast<PieceView*>(button) == nullptr) keys_->TakeArrowsFrom(button);
    // A click leaves the focus where it is, so that a later Enter presses nothing by surprise.
    button->setFocusPolicy(Qt::TabFocus);
  }
  connect(scoreboard_, &Scoreboard::keysWanted, this, [this] { keys_->ShowPlate(true); });
  connect(keys_, &PlayKeys::outcomeWanted, next_, &NextStep::Record);
  connect(keys_, &PlayKeys::chartWanted, this, &BoardWindow::ViewCharts);
  connect(keys_, &PlayKeys::chartsWanted, this, [this] { ViewCharts(aids_.state.lastChart); });
  // A new batter's roll begins at the first chart.
  FollowAll(
      park_, [this] { aids_.state.lastChart = 0; }, board_.state.lbl_Selected);
  connect(keys_, &PlayKeys::diceWanted, this, [this] { RollDice(aids_); });
  connect(keys_, &PlayKeys::listWanted, this, [this](int key) {
    const Side side = SideAtBat(board_.state).value_or(Side::Visitors);
    LineupView& list = (side == Side::Visitors ? visitors_ : home_)->list();
    list.setFocus(Qt::OtherFocusReason);
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&list, &press);
  });
}

void BoardWindow::BuildPieces() {
  auto* targets = new BaseTargets(aids_, scene_, park_);
  for (int piece = 0; piece < kPieces; ++piece) {
    new PieceView(board_, piece, pictures_, aids_, *targets, scene_, park_);
  }
}

void BoardWindow::ScrollListsUp() {
  visitors_->list().ScrollUpOneLine();
  home_->list().ScrollUpOneLine();
}

void BoardWindow::ViewCharts(int chart) {
  const auto choice = ChartViewer::Run(board_, aids_, chart, this);
  if (!choice) return;
  const BoxKey closesBoxes(choice->key);
  next_->Record(choice->outcome);
}

void BoardWindow::ShowStats() {
  ConstantUpdate(board_);
  RunInPlace(*form2_, board_.platform.settings, [this] { CenterForm(form2_, this); });
}

void BoardWindow::ShowLog() {
  CenterForm(log_, this);
  log_->exec();
}

void BoardWindow::ShowPlays() {
  PlaysWindow window(board_, this);
  window.addActions({edit_->undo(), edit_->redo()});
  plays_ = &window;
  const Application::Net net;
  window.exec();
}

void BoardWindow::ShowSeasonInTitle() {
  setWindowTitle(ToQt(WindowTitle() + SeasonInTitle(board_.platform)));
}

void BoardWindow::ShowBox() {
  BoxWindow window(board_, this);
  window.addActions({edit_->undo(), edit_->redo()});
  const Application::Net net;
  window.exec();
}

void BoardWindow::ShowScorecard() {
  if (card_ == nullptr) {
    card_ = new ScorecardWindow(board_.platform, this);
    card_->setAttribute(Qt::WA_DeleteOnClose);
    card_->addActions({edit_->undo(), edit_->redo()});
    card_->FollowBoard(board_);
  }
  card_->show();
  card_->raise();
  card_->activateWindow();
}

void BoardWindow::PlaceAtLaunch() {
  if (TakeUpPlace(*this, board_.platform.settings)) return;
  FitAtLaunch(this, scene_.resizer(), menuBar()->sizeHint().height());
  const QRect free = screen()->availableGeometry();
  const QSize room = free.size() - size();
  move(free.left() + std::max(0, room.width() / 2), free.top() + std::max(0, room.height() / 4));
}

void BoardWindow::SizeMenu() {
  // By the window, never by the park: the park's size depends on that of the menu.
  constexpr double kLeastMenuType = 10;
  const double scale = std::min(width() / kSceneWidth, height() / kSceneHeight);
  const QFont font = look::Font(std::max(kLeastMenuType, look::kBody * scale));
  if (menuBar()->font() == font) return;
  menuBar()->setFont(font);
  layout()->activate();
}

void BoardWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  SizeMenu();
  HoldRatio(this, scene_.resizer(), menuBar()->height());
}

bool BoardWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == park_ && event->type() == QEvent::Resize) SupplementalResize();
  auto* menu = event->type() == QEvent::KeyPress ? qobject_cast<QMenu*>(watched) : nullptr;
  if (menu != nullptr && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    LeaveMenu(menu, *static_cast<QKeyEvent*>(event));
    return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

// Esc leaves the menu bar together with the menu; in Qt the bar would keep the keys, and Space and
// Enter would be an Undo.
void BoardWindow::LeaveMenu(QMenu* menu, const QKeyEvent& escape) {
  menu->close();
  QKeyEvent again(escape.type(), escape.key(), escape.modifiers());
  if (menuBar()->hasFocus()) QCoreApplication::sendEvent(menuBar(), &again);
}

void BoardWindow::SupplementalResize() {
  scene_.Apply(park_->size());
  board_.state.cb_Xinnings.Set(false);
}

void BoardWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    for (auto* piece : park_->findChildren<PieceView*>()) {
      if (piece->CancelDrag()) return;
    }
  }
  // Esc closes what the keys opened before it closes the markers.
  if (!keys_->open() && markers_->Press(*event)) return;
  if (!focusKeys_->Press(*event) && !keys_->Press(*event)) QMainWindow::keyPressEvent(event);
}

void BoardWindow::closeEvent(QCloseEvent* event) {
  if (ConfirmExit(board_)) {
    KeepPlace(*this, board_.platform.settings);
    if (card_ != nullptr) card_->close();
    event->accept();
  } else {
    event->ignore();
  }
}

}  // namespace dtb
