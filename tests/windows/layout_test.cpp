#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <set>

#include "base/settings_keys.h"
#include "game/game_pieces.h"
#include "windows/browser_form_test.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

class LayoutTest : public WindowTest {
 protected:
  // Everything that the board can show is shown.
  void ShowAll() {
    board().state.fra_Options_visible.Set(true);
    board().state.pb_BaseTracker_visible.Set(true);
    desk_->aids().Check4.Set(true);
    desk_->aids().fra_BBgumBB_visible.Set(true);
    desk_->aids().cb_RandParks_visible.Set(true);
    board().state.Check1.Set(true);
    board().state.Check2.Set(true);
    form1().findChild<ParkMarkers*>()->Open();
  }

  static QString TextOf(const QWidget* widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(widget)) return label->text();
    return {};
  }
};

// The usual screens, less a title bar.
const std::vector<QSize> kScreens{{1280, 680}, {1366, 728}, {1920, 1040}, {2560, 1400}, {960, 560}};

TEST_F(LayoutTest, NothingIsCutOffOrOutsideItsPanel) {
  StartGame();
  ShowAll();
  for (const QSize& screen : kScreens) {
    form1().resize(screen.height() * 1679 / 1000, screen.height());
    QCoreApplication::processEvents();
    for (const auto* widget : form1().findChildren<QWidget*>()) {
      if (widget->window() != &form1() || !widget->isVisible()) continue;
      const QString what = QStringLiteral("%1 at %2").arg(widget->objectName()).arg(screen.width());
      const QString text = TextOf(widget);
      if (!text.isEmpty() && !widget->objectName().startsWith(QStringLiteral("lbl_Player"))) {
        const bool mark = qobject_cast<const QCheckBox*>(widget) != nullptr ||
                          qobject_cast<const QRadioButton*>(widget) != nullptr;
        const int needed =
            mark ? widget->sizeHint().width() : widget->fontMetrics().horizontalAdvance(text);
        EXPECT_LE(needed, widget->width()) << FromQt(what) << ": " << FromQt(text);
        EXPECT_LE(widget->fontMetrics().ascent(), widget->height()) << FromQt(what);
      }
      const bool placed = widget->parentWidget() != nullptr && !widget->objectName().isEmpty() &&
                          !widget->objectName().startsWith(QStringLiteral("qt_"));
      if (placed) {
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << FromQt(what);
      }
    }
  }
}

// Whole rows at every place of the bar, at every size; what is left below the twelfth is no row.
TEST_F(LayoutTest, LineUpsShowWholeRows) {
  QByteArray lines;
  for (int i = 1; i <= 25; ++i)
    lines += "Player " + QByteArray::number(i) + "=CF L .301 speed AA\n";
  const QString file = folder_.filePath(QStringLiteral("Long.txt"));
  WriteFile(file, lines);
  OpenTeam(board(), Side::Visitors, FromQt(file));
  auto* list = Find<QListView>("List1");
  for (const QSize& screen : kScreens) {
    form1().resize(screen.height() * 1679 / 1000, screen.height());
    QCoreApplication::processEvents();
    QScrollBar* bar = list->verticalScrollBar();
    for (int place = bar->minimum(); place <= bar->maximum(); ++place) {
      bar->setValue(place);
      const int room = list->viewport()->height();
      const auto shown = [&](int row) { return list->visualRect(list->model()->index(row, 0)); };
      EXPECT_EQ(shown(place).width(), list->viewport()->width()) << screen.width();
      EXPECT_EQ(shown(place).top(), 0) << place << " of " << screen.width();
      EXPECT_EQ(shown(place + 11).bottom() + 1, room) << place << " of " << screen.width();
    }
    bar->setValue(0);
    list->clearSelection();
    const int below = list->viewport()->geometry().bottom() + 2;
    Click(list, {}, Qt::LeftButton, {list->width() / 2, below});
    EXPECT_EQ(board().state.List1.selected(), -1) << screen.width();
  }
}

// A line shows where a dragged row goes in: above the row under the pointer, below it with Shift.
TEST_F(LayoutTest, ADraggedRowShowsWhereItGoesIn) {
  StartGame();
  board().state.Check1.Set(true);
  auto* list = Find<QListView>("List1");
  QWindow* window = form1().windowHandle();
  const auto rowOf = [list](int row) { return list->visualRect(list->model()->index(row, 0)); };
  const auto on = [&](int row) { return list->viewport()->mapTo(&form1(), rowOf(row).center()); };
  const auto lineAt = [list](int y) {
    const QColor seen =
        list->viewport()->grab().toImage().pixelColor(list->viewport()->width() / 2, y);
    return seen == look::kAccent;
  };
  QTest::mousePress(window, Qt::LeftButton, {}, on(1));
  QTest::mouseMove(window, on(3));
  QTest::mouseMove(window, on(5));
  EXPECT_TRUE(lineAt(rowOf(5).top()));
  EXPECT_FALSE(lineAt(rowOf(5).bottom() + 1));
  QTest::mouseRelease(window, Qt::LeftButton, {}, on(5));
  EXPECT_FALSE(lineAt(rowOf(5).top()));
  EXPECT_EQ(board().state.List1.entries()[4], "Ants 2");
}

// Until the first pitch the board says what comes next, and an outcome that is refused flashes it.
TEST_F(LayoutTest, TheNextStepIsTold) {
  const auto* next = form1().findChild<NextStep*>();
  ASSERT_NE(next, nullptr);
  const auto load = [this](Side side, const char* name) {
    const QString file = folder_.filePath(QLatin1String(name) + QStringLiteral(".txt"));
    WriteFile(file, QByteArray("One of NAME\nTwo of NAME\nThree of NAME\n").replace("NAME", name));
    OpenTeam(board(), side, FromQt(file));
  };
  const auto pitches = [this](Side side) {
    SideOf(board(), side).list.Select(2);
    ChangePitcher(board(), side);
  };
  const std::vector<std::pair<Step, std::function<void()>>> steps{
      {Step::LoadVisitors, [&] { load(Side::Visitors, "V"); }},
      {Step::LoadHome, [&] { load(Side::Home, "H"); }},
      {Step::VisitorsPitcher, [&] { pitches(Side::Visitors); }},
      {Step::HomePitcher, [&] { pitches(Side::Home); }},
      {Step::AtBat, [&] { PutAtBat(board(), Side::Visitors); }},
      {Step::FirstBatter, [&] { board().state.List1.Select(0); }}};
  std::set<Step> flashed;  // a flash may be over before anybody looks
  QObject::connect(next, &NextStep::changed, next, [&] {
    for (const auto& entry : steps) {
      if (next->Flashes(entry.first)) flashed.insert(entry.first);
    }
  });
  for (const auto& [step, take] : steps) {
    EXPECT_TRUE(next->Is(step)) << static_cast<int>(step);
    EXPECT_FALSE(next->Flashes(step)) << static_cast<int>(step);
    const auto closed = step < Step::VisitorsPitcher ? nullptr : AnswerBoxes({Qt::Key_Escape});
    Press(&form1(), Qt::Key_K);
    EXPECT_TRUE(flashed.contains(step)) << static_cast<int>(step);
    take();
  }
  EXPECT_EQ(flashed.size(), steps.size());
  EXPECT_TRUE(next->Is(Step::None));
  EXPECT_EQ(board().state.tb_OUT.value(), "0");
}

// The board stands where it was left, unless nobody could reach it there.
TEST_F(LayoutTest, TheBoardStandsWhereItWasLeft) {
  const auto begun = [this](const char* place) {
    desk_.reset();
    if (place != nullptr) {
      WriteFile(folder_.filePath(QStringLiteral("settings.ini")),
                QByteArray("[windows]\nForm1=") + place + "\n");
    }
    desk_ = std::make_unique<Desk>(setup_);
    desk_->Open();
    return form1().geometry();
  };
  const QRect usual = form1().geometry();
  const QRect left(5, 30, usual.width() - 40, qRound((usual.width() - 40) * 0.6));
  form1().setGeometry(left);
  QCoreApplication::processEvents();
  const QRect held = form1().geometry();
  const auto asked = AnswerBoxes({Qt::Key_Y});
  form1().close();
  EXPECT_EQ(begun(nullptr), held);
  for (const char* wrong :
       {"90000 90000 900 600 0", "0 0 3 3 0", "5 30 nine 600 0", "-5000 0 900 600 0", ""}) {
    EXPECT_EQ(begun(wrong), usual) << wrong;
  }
}

// What floats on the park at start leaves everything else free.
TEST_F(LayoutTest, PanelsDoNotCoverEachOther) {
  const std::vector<const char*> names{
      "VisitorsPanel", "HomePanel",  "Frame3",     "pb_Res",     "fra_SOMBBdice",  "fra_BBgumBB",
      "pb_Player1",    "pb_Player2", "pb_Player3", "pb_Player4", "pb_BaseTracker", "fra_Options"};
  for (std::size_t a = 0; a < names.size(); ++a) {
    for (std::size_t b = a + 1; b < names.size(); ++b) {
      EXPECT_FALSE(Find(names[a])->geometry().intersects(Find(names[b])->geometry()))
          << names[a] << " and " << names[b];
    }
  }
  for (const char* hit : {"lbl_Single", "lbl_BB", "lbl_Pick", "lbl_STATS"}) {
    EXPECT_GE(Find(hit)->width() * kSceneWidth / form1().width(), 44) << hit;
    EXPECT_GE(Find(hit)->height() * kSceneWidth / form1().width(), 32) << hit;
  }
}

// Counts the work that Qt does for the windows.
class WorkCounter : public QObject {
 public:
  WorkCounter() { qApp->installEventFilter(this); }
  int resizes = 0;
  int layouts = 0;
  int paints = 0;
  [[nodiscard]] int all() const { return resizes + layouts + paints; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!watched->isWidgetType()) return false;
    resizes += event->type() == QEvent::Resize ? 1 : 0;
    layouts += event->type() == QEvent::LayoutRequest ? 1 : 0;
    paints += event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest ? 1 : 0;
    return false;
  }
};

// At every height, also of a board whose proportions are not held, the layout comes to rest at
// once, and an idle board does nothing.
TEST_F(LayoutTest, LayoutSettlesAtEveryHeight) {
  StartGame();
  for (const auto& [width, lowest] : {std::pair(1366, 600), std::pair(1920, 601)}) {
    for (int height = lowest; height <= 1100; height += 2) {
      form1().resize(width, height);
      for (int turn = 0; turn < 4; ++turn) QCoreApplication::processEvents();
      const WorkCounter work;
      QCoreApplication::processEvents();
      ASSERT_EQ(form1().size(), QSize(width, height));
      ASSERT_EQ(work.all(), 0) << width << " x " << height;
    }
  }
}

// Whoever makes the window half as high, the layout is not squeezed.
TEST_F(LayoutTest, AWindowThatIsMadeHalfAsHighKeepsItsRatio) {
  for (const QSize size : {QSize(1000, 300), QSize(1366, 384), QSize(1920, 540)}) {
    form1().resize(size);
    for (int turn = 0; turn < 4; ++turn) QCoreApplication::processEvents();
    const QSizeF park = Find("Picture1")->size();
    EXPECT_NEAR(park.height(), park.width() * kSceneHeight / kSceneWidth, 2) << size.width();
    EXPECT_LE(form1().height(), form1().screen()->availableSize().height()) << size.width();
  }
}

// Short names have the type of the figures beside them, and both have one.
TEST_F(LayoutTest, TeamNamesGrowWithTheBoard) {
  for (const QSize size : {form1().size(), QSize(1288, 748), QSize(2576, 1496), QSize(1400, 820)}) {
    form1().resize(size);
    QCoreApplication::processEvents();
    for (const char* team : {"tb_VisTeam", "tb_HomeTeam"}) {
      EXPECT_EQ(Find(team)->font().pixelSize(), Find("tb_BoxScore[20]")->font().pixelSize())
          << team;
    }
  }
}

TEST_F(LayoutTest, IdleBoardDoesNoWork) {
  StartGame();
  ShowAll();
  QCoreApplication::processEvents();
  QMetaObject::invokeMethod(Find<QTimer>("tmr_Constant"), "timeout");
  QCoreApplication::processEvents();
  const WorkCounter work;
  for (int tick = 0; tick < 30; ++tick) {
    for (const char* timer : {"tmr_Constant", "tmr_F12detect"}) {
      QMetaObject::invokeMethod(Find<QTimer>(timer), "timeout");
    }
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(work.all(), 0);
}

// Pieces on their start places leave every control free, however large they are.
TEST_F(LayoutTest, PiecesAtStartCoverNoControl) {
  StartGame();
  form1().resize(1288, 748);
  for (int times = 0; times < 12; ++times) {
    QCoreApplication::processEvents();
    for (auto* button : Find("pb_Res")->findChildren<QAbstractButton*>()) {
      for (const QPoint& place : {button->rect().topLeft(), button->rect().bottomRight()}) {
        EXPECT_EQ(form1().childAt(button->mapTo(&form1(), place)), button)
            << FromQt(button->objectName()) << " after BIG x " << times;
      }
    }
    EnlargePieces(board());
    ResetGamePieces(board());
  }
  // One that lies under a panel as a whole comes out of it.
  for (int times = 0; times < 30; ++times) ShrinkPieces(board());
  MovePiece(board(), 0, kSceneWidth - 160, 640);
  auto* piece = Find("pb_Player1");
  EXPECT_EQ(form1().childAt(piece->mapTo(&form1(), piece->rect().center())), piece);
}

// Every control is reached with Tab, says its name to a screen reader, and tells what it does.
TEST_F(LayoutTest, EveryControlIsReachedByKeyboardAndHasATip) {
  StartGame();
  ShowAll();
  std::set<const QWidget*> reached;
  form1().activateWindow();
  for (int step = 0; step < 400; ++step) {
    Press(&form1(), Qt::Key_Tab);
    if (QApplication::focusWidget() != nullptr) reached.insert(QApplication::focusWidget());
  }
  for (const auto* widget : form1().findChildren<QWidget*>()) {
    const bool control = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                         qobject_cast<const QLineEdit*>(widget) != nullptr ||
                         qobject_cast<const LineupView*>(widget) != nullptr;
    const QString name = widget->objectName();
    if (!control || widget->window() != &form1() || !widget->isVisible()) continue;
    if (name.startsWith(QStringLiteral("qt_"))) continue;
    // A line-up tells of its rows, and a free piece has nobody to tell of.
    const bool needsTip = qobject_cast<const LineupView*>(widget) == nullptr &&
                          !name.startsWith(QStringLiteral("pb_Player"));
    EXPECT_FALSE(needsTip && widget->toolTip().isEmpty()) << FromQt(name);
    if (!widget->isEnabled()) continue;
    EXPECT_TRUE(reached.contains(widget)) << FromQt(name);
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << FromQt(name);
  }
}

using PlacesTest = BrowserFormTest;

TEST_F(PlacesTest, WindowsStandWhereTheyWereLeft) {
#ifdef _WIN32
  GTEST_SKIP() << "on Qt's offscreen screen there a window's least size grows once it is shown";
#endif
  MakeDatabase("");
  QRect left;
  const auto trigger = [this](const char* action) {
    return [this, action] {
      Find<QAction>(action)->trigger();
      QCoreApplication::processEvents();
    };
  };
  const std::vector<std::pair<const char*, std::function<void()>>> windows{
      {"Form2", [this] { Click(Find("lbl_STATS")); }},
      {"Form3", [this] { Press(&form1(), Qt::Key_V); }},
      {"Form4", trigger("mnuStatistics")},
      {"SeasonForm", trigger("mnuSeason")}};
  for (const auto& [name, open] : windows) {
    SCOPED_TRACE(name);
    const auto placeOnceOpen = [&](const QRect& moved) {
      QRect seen;
      WhileWaiting([&] {
        QWidget* window = QApplication::activeModalWidget();
        EXPECT_EQ(window->objectName(), QLatin1String(name));
        seen = window->geometry();
        if (moved.isValid()) window->setGeometry(moved);
        QTimer::singleShot(0, window, [&, window] {
          if (moved.isValid()) left = window->geometry();
          window->close();
        });
      });
      open();
      return seen;
    };
    const QRect usual = placeOnceOpen({});
    EXPECT_EQ(placeOnceOpen({}), usual) << "nobody moved it";
    placeOnceOpen(
        {usual.left() / 2, usual.top() + 9, usual.width() * 4 / 5, usual.height() * 4 / 5});
    EXPECT_NE(left.size(), usual.size());
    EXPECT_EQ(placeOnceOpen({}), left);
    board().platform.settings.Write(settings::kWindows, name, "9000 9000 1200 900 0");
    EXPECT_TRUE(form1().screen()->geometry().contains(placeOnceOpen({})))
        << "the screen where it stood is gone";
  }
}

}  // namespace
}  // namespace dtb
