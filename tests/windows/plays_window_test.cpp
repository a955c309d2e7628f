// The window "Plays": what it lists, what a mark changes, and the way back.
#include "windows/plays/plays_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>

#include "game/history.h"
#include "game/outcomes.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

class PlaysWindowTest : public WindowTest {
 protected:
  void StartKept() {
    StartGame();
    desk_->aids().cb_QuickBoxes.Set(true);
    board().state.cb_KeepBases.Set(true);
  }
  void Record(const std::vector<Outcome>& outcomes) {
    for (const Outcome outcome : outcomes) RecordOutcome(board(), outcome);
  }
  // Opens the window by its key, looks at it, and closes it.
  void Open(const std::function<void()>& look) {
    bool looked = false;
    WhileWaiting([&] {
      look();
      looked = true;
      Press(Window(), Qt::Key_Escape);
    });
    form1().activateWindow();  // no window manager gives it back
    while (!form1().isActiveWindow()) QCoreApplication::processEvents();
    Press(&form1(), Qt::Key_L, Qt::ControlModifier);
    while (!looked || QApplication::activeModalWidget() != nullptr) {
      QCoreApplication::processEvents();
    }
    EXPECT_EQ(form1().findChild<PlaysWindow*>(), nullptr) << "it is created each time";
  }

  PlaysWindow* Window() { return Find<PlaysWindow>("Plays"); }
  QListView* List() { return Find<QListView>("lst_Plays"); }
  QAbstractButton* Button(const char* name) {
    auto* found = Window()->findChild<QAbstractButton*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  QString TextOfRow(int row) { return List()->model()->index(row, 0).data().toString(); }
  // A click on the last line of a row.
  void Choose(int row, Qt::KeyboardModifiers held = {}) {
    const QModelIndex index = List()->model()->index(row, 0);
    List()->scrollTo(index);
    const QRect place = List()->visualRect(index);
    Click(List()->viewport(), held, Qt::LeftButton, {place.left() + 40, place.bottom() - 4});
    EXPECT_EQ(List()->currentIndex().row(), row);
  }
  std::string RunsBattedIn(int row) {
    return std::string(board().sheet.grd_VisStats.Text(row, stat_column::kRunsBattedIn));
  }
  std::string EarnedRuns() {
    return std::string(board().sheet.grd_HomeStats.Text(1, stat_column::kEarnedRuns));
  }
};

TEST_F(PlaysWindowTest, ListsThePlaysAndCopiesThem) {
  Open([&] {
    EXPECT_EQ(List()->model()->rowCount(), 0);
    EXPECT_EQ(List()->accessibleDescription(), "No play has been recorded yet.");
    for (const char* name : {"cmd_Copy", "cmd_UndoToHere"}) {
      EXPECT_FALSE(Button(name)->isEnabled()) << name;
    }
    EXPECT_FALSE(Button("chk_Battedin0")->isVisible());
  });
  StartKept();
  Record({Outcome::Walk, Outcome::Groundout, Outcome::Homer});
  Open([&] {
    EXPECT_EQ(List()->currentIndex().row(), 2) << "it begins at the last play";
    Choose(0);
    Choose(2, Qt::ControlModifier);
    Press(Window(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "Top 1, 0 outs: 1 walks\nTop 1, 1 out: 3 homers, 1 scores from first\n");
    Click(Button("cmd_Copy"));
    EXPECT_EQ(QGuiApplication::clipboard()->text().count('\n'), 3);
  });
}

TEST_F(PlaysWindowTest, AMarkChangesTheSheetInOneStep) {
  StartKept();
  Record({Outcome::Walk, Outcome::Homer, Outcome::Single});
  ASSERT_EQ(RunsBattedIn(2) + EarnedRuns(), "22");
  const std::size_t steps = board().history->steps();
  Open([&] {
    EXPECT_FALSE(Button("chk_Earned0")->isVisible()) << "a single without a run";
    Choose(1);
    EXPECT_TRUE(Button("chk_Battedin1")->isVisible());
    EXPECT_FALSE(Button("chk_Battedin2")->isVisible()) << "two runs";
    Click(Button("chk_Battedin0"));
    EXPECT_EQ(RunsBattedIn(2) + EarnedRuns(), "12");
    Button("chk_Earned1")->setFocus();
    Press(Window(), Qt::Key_Space);
    EXPECT_EQ(RunsBattedIn(2) + EarnedRuns(), "11");
    EXPECT_EQ(board().history->steps(), steps + 2);
    EXPECT_EQ(List()->currentIndex().row(), 1) << "the chosen play stays chosen";
    for (int step = 0; step < 2; ++step) Press(Window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(RunsBattedIn(2) + EarnedRuns(), "22");
    EXPECT_TRUE(Button("chk_Battedin0")->isChecked() && Button("chk_Earned1")->isChecked());
    Press(Window(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(Button("chk_Battedin0")->isChecked());
    // Two steps more take the play away, and with it the mark that has the focus.
    for (int step = 0; step < 3; ++step) Press(Window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(List()->currentIndex().row(), 0);
    EXPECT_TRUE(List()->hasFocus());
  });
}

TEST_F(PlaysWindowTest, GoesBackToAPlayAsFarAsTheStepsReach) {
  StartKept();
  Record({Outcome::Walk, Outcome::Single});
  const std::string game = GameText(board());
  const std::size_t steps = board().history->steps();
  Record({Outcome::Double, Outcome::Strikeout});
  Open([&] {
    EXPECT_FALSE(Button("cmd_UndoToHere")->isEnabled()) << "the last play";
    Choose(1);
    Click(Button("cmd_UndoToHere"));
    EXPECT_TRUE(GameText(board()) == game);
    EXPECT_EQ(board().history->steps(), steps);
    EXPECT_EQ(List()->model()->rowCount(), 2);
    EXPECT_EQ(List()->currentIndex().row(), 1);
    for (int step = 0; step < 2; ++step) {
      Press(Window(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    }
    EXPECT_EQ(TextOfRow(3), "Top 1, 0 outs: 4 strikes out");
  });
  board().history->Clear();  // as after a new start
  Record({Outcome::Groundout, Outcome::Walk});
  Open([&] {
    Choose(2);
    EXPECT_FALSE(Button("cmd_UndoToHere")->isEnabled());
    EXPECT_TRUE(Button("cmd_UndoToHere")->toolTip().contains("does not reach back so far"));
    Choose(3);
    EXPECT_TRUE(Button("cmd_UndoToHere")->isEnabled()) << "before the first step that is known";
  });
}

TEST_F(PlaysWindowTest, HasRoomForTwoHundredPlaysAndLongNames) {
  StartKept();
  const std::string name = "Bartholomew Featherstonehaugh-Cholmondeley-Wriothesley";
  dtb::Play play;
  play.outcome = Outcome::Homer;
  play.batter = name;
  play.pitcher = name;
  play.basesKept = true;
  for (const int from : {kThirdBase, kSecondBase, kFirstBase, kAtBatPlace}) {
    play.moves.push_back({name, from, kHomePlate, name, true, true});
  }
  for (int i = 0; i < 200; ++i) {
    play.half = i / 6;
    board().state.plays.Append(play);
  }
  Open([&] {
    const QScrollBar* bar = List()->verticalScrollBar();
    EXPECT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
    EXPECT_EQ(List()->horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(List()->visualRect(List()->currentIndex()).height(),
              2 * List()->fontMetrics().height());
    for (const char* mark : {"chk_Battedin3", "chk_Earned3"}) {
      const QRect place(Button(mark)->mapTo(Window(), QPoint()), Button(mark)->size());
      EXPECT_TRUE(Window()->rect().contains(place)) << mark;
    }
  });
}

}  // namespace
}  // namespace dtb
