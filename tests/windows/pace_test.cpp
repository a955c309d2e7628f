// A game played fast: quick boxes, presses that close a box, charts and dice together.
#include <QListView>

#include "game/start_up.h"
#include "teams/lineup_edit.h"
#include "window_test.h"
#include "windows/aids/chart_viewer.h"
#include "windows/boxes/notices.h"

namespace dtb {
namespace {

class PaceTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    StartGame();
  }

  // The middle of a row, on the form.
  QPoint RowPlace(const char* list, int row) {
    auto* view = Find<QListView>(list);
    const QRect place = view->visualRect(view->model()->index(row, 0));
    return view->viewport()->mapTo(&form1(), place.center());
  }
  QPoint PlaceOf(const char* control) {
    auto* widget = Find(control);
    return widget->mapTo(&form1(), widget->rect().center());
  }
  [[nodiscard]] std::string Batter() { return board().state.lbl_Selected.value(); }
  QStringList Shown() {
    const auto* notices = form1().findChild<Notices*>();
    return notices == nullptr ? QStringList() : notices->shown();
  }
};

TEST_F(PaceTest, QuickBoxesHoldNothingBackAndWarningsDo) {
  ToggleOptions(board());
  Click(Find("cb_QuickBoxes"));
  Click(Find("lbl_Single"));
  EXPECT_EQ(Batter(), "Ants 2");
  EXPECT_EQ(Shown(), QStringList{"HIT recorded. Ants 1 1B"});
  for (const char* out : {"lbl_K", "lbl_GO", "lbl_FO"}) Click(Find(out));
  EXPECT_EQ(board().state.tb_OutsCount.value(), "3");
  ASSERT_EQ(Shown().size(), 4) << "no more than four at a time";
  EXPECT_EQ(Shown().first(), "END OF INNING. Ants 0, Bees 0");
  EXPECT_EQ(Shown().at(1), "OUT recorded. Ants 4 FO");
  board().history->Undo(board());
  EXPECT_EQ(board().state.tb_OutsCount.value() + Batter(), "0Ants 4") << "one step back";

  board().state.lbl_Selected.Set("");
  const auto warned = AnswerBoxes({Qt::Key_Escape});
  Click(Find("lbl_Single"));
  EXPECT_EQ(warned->size(), 1);
  EXPECT_TRUE(form1().findChild<Notices*>()->testAttribute(Qt::WA_TransparentForMouseEvents));
  EXPECT_TRUE(QTest::qWaitFor([this] { return Shown().isEmpty(); })) << "they go by themselves";
  Desk another(setup_);
  EXPECT_TRUE(another.aids().cb_QuickBoxes.value()) << "kept in the settings";
}

TEST_F(PaceTest, PressThatClosesABoxIsDeliveredWhereItDoesNoHarm) {
  struct Case {
    const char* name;
    QPoint press;
    QPoint release;
    std::string selected;  // afterwards
    bool homeBats;
  };
  const QPoint row = RowPlace("List1", 4);
  const QPoint atBat = PlaceOf("Option6");
  const QPoint hit = PlaceOf("lbl_Homer");
  for (const Case& c : {Case{"a row", row, row, "Ants 5", false},
                        {"AT BAT", atBat, atBat, "Ants 2", true},
                        {"an outcome", hit, hit, "Ants 2", false},
                        {"slides off", row, hit, "Ants 2", false}}) {
    SCOPED_TRACE(c.name);
    PutAtBat(board(), Side::Visitors);
    SelectRow(board(), Side::Visitors, 0);
    QWindow* window = form1().windowHandle();
    WhileWaiting([&] { QTest::mousePress(window, Qt::LeftButton, {}, c.press); });
    Click(Find("lbl_Single"));
    EXPECT_EQ(Batter(), "Ants 2");
    QTest::mouseRelease(window, Qt::LeftButton, {}, c.release);
    bool over = false;  // what the release brings comes a turn later
    QTimer::singleShot(20, qApp, [&over] { over = true; });
    ASSERT_TRUE(QTest::qWaitFor([&over] { return over; }));
    EXPECT_EQ(Batter(), c.selected);
    EXPECT_EQ(board().state.Option6.value(), c.homeBats);
    EXPECT_EQ(board().sheet.grd_VisStats.Text(1, stat_column::kHomeRuns), "");
  }
}

TEST_F(PaceTest, PressThatBringsTheNextBoxIsNotDelivered) {
  board().state.tb_OUT.Set("2");
  const QPoint row = RowPlace("List1", 4);
  WhileWaiting([&] {
    const QPointer<MessageBox> first = MessageBox::Open();
    QTest::mouseClick(form1().windowHandle(), Qt::LeftButton, {}, row);
    WhenTrue([first] { return MessageBox::Open() != nullptr && MessageBox::Open() != first; },
             [this] { Press(&form1(), Qt::Key_Return); });
  });
  Click(Find("lbl_K"));
  EXPECT_EQ(board().state.tb_OutsCount.value(), "3");
  EXPECT_EQ(board().state.List1.selected(), 0);
}

TEST_F(PaceTest, ChartsTurnRollAndTakeTheResult) {
  board().state.tb_OUT.Set("0");
  desk_->aids().cb_QuickBoxes.Set(true);
  form1().activateWindow();
  WhileWaiting([] {
    EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), "Chart 3");
    QApplication::activeModalWidget()->close();
  });
  Press(&form1(), Qt::Key_3, Qt::AltModifier);
  desk_->aids().lastChart = 0;
  const auto keyInViewer = [this](const std::vector<std::pair<Qt::Key, QString>>& keys) {
    WhileWaiting([this, keys] {
      auto* viewer = qobject_cast<ChartViewer*>(QApplication::activeModalWidget());
      ASSERT_NE(viewer, nullptr);
      for (const auto& [key, title] : keys) {
        QTest::keyClick(viewer->windowHandle(), key);
        EXPECT_TRUE(title.isEmpty() || viewer->windowTitle() == title) << title.toStdString();
      }
      EXPECT_TRUE(desk_->aids().tmr_sombb.value()) << "Space rolls";
    });
  };
  keyInViewer({{Qt::Key_Space, "Chart 1"},
               {Qt::Key_5, "Chart 5"},
               {Qt::Key_PageDown, "Chart 6"},
               {Qt::Key_PageUp, "Chart 5"},
               {Qt::Key_G, ""}});
  Press(&form1(), Qt::Key_V);
  EXPECT_EQ(board().state.tb_OUT.value() + Batter(), "1Ants 2");
  for (const char* title : {"Chart 1", "Chart 5"}) {
    WhileWaiting([title] {
      auto* viewer = QApplication::activeModalWidget();
      EXPECT_EQ(viewer->windowTitle(), title) << "first a new batter, then where it stood";
      QTest::keyClick(viewer->windowHandle(), Qt::Key_5);
      QTest::keyClick(viewer->windowHandle(), Qt::Key_Escape);
    });
    Press(&form1(), Qt::Key_V);
  }
  WhileWaiting([this] {
    auto* viewer = QApplication::activeModalWidget();
    QStringList told;
    for (const auto* label : viewer->findChild<QWidget*>("Situation")->findChildren<QLabel*>()) {
      told.append(label->text());
    }
    EXPECT_EQ(told.join("|"),
              "Top of the 1st, 1 out|Ants|0|Bees|0|AT BAT|Ants 2|PITCHES|Bees 10|ON THE PIECES|"
              "1  Ants 2");
    QTest::keyClick(viewer->windowHandle(), Qt::Key_2, Qt::ControlModifier);
  });
  Press(&form1(), Qt::Key_V);
  EXPECT_EQ(board().sheet.grd_VisStats.Text(2, stat_column::kDoubles), "1");
}

TEST_F(PaceTest, KeyNBringsTheBatterWhoIsDueAndEnterPressesNothing) {
  desk_->aids().cb_QuickBoxes.Set(true);
  desk_->aids().Check4.Set(true);
  Click(Find("cmd_Roll"));
  desk_->aids().tmr_sombb.Set(false);
  for (const char* out : {"lbl_K", "lbl_K", "lbl_K"}) Click(Find(out));
  Press(&form1(), Qt::Key_Return);
  EXPECT_FALSE(desk_->aids().tmr_sombb.value()) << "Enter does not roll";
  auto* duel = form1().findChild<QWidget*>("img_VisPitch_title");
  ASSERT_NE(duel, nullptr);
  EXPECT_EQ(duel->toolTip(), "") << "nobody is at bat yet, and the batter of before is a team-mate";
  Press(&form1(), Qt::Key_N);
  EXPECT_EQ(duel->toolTip(), "Pitches to Bees 1");
  EXPECT_EQ(Batter(), "Bees 1");
  Press(&form1(), Qt::Key_X);
  EXPECT_TRUE(desk_->aids().tmr_sombb.value());
}

TEST_F(PaceTest, NamesInTipsAreNoMarks) {
  board().state.pieces[0].tag.Set("<i>Ann</i>");
  Find<QLineEdit>("tb_VisTeam")->setText("<i>Owls</i>");
  for (const char* control : {"pb_Player1", "tb_VisTeam"}) {
    EXPECT_TRUE(Find(control)->toolTip().contains("&lt;i&gt;")) << control;
  }
}

}  // namespace
}  // namespace dtb
