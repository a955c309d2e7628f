// Where the focus is after a window, a box or a field: where Space and Enter change nothing.
#include <QCheckBox>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>

#include "browser_form_test.h"
#include "game/history.h"
#include "game/new_game.h"
#include "platform/qt/qt_keyboard.h"
#include "replay/play_table.h"
#include "windows/boxes/message_box.h"

namespace dtb {
namespace {

class FocusTest : public BrowserFormTest {
 protected:
  FocusTest() {
    setup_.dialogs = &dialogs_;
    setup_.pages = &quiet_;
    setup_.spreadsheets = &quiet_;
    setup_.sounds = &quiet_;
  }
  QString FocusName() {
    const QWidget* focus = form1().focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
  }
  // What a person presses who believes that the board has the keys.
  void PressWhereNoOneAimed(const std::string& after, const char* focus = "Picture1") {
    const std::string game = GameText(board());
    const int boxes = MessageBox::Opened();
    ASSERT_EQ(QApplication::activeModalWidget(), nullptr) << after;
    for (const auto key : {Qt::Key_Space, Qt::Key_Return}) Press(&form1(), key);
    QCoreApplication::processEvents();
    EXPECT_TRUE(GameText(board()) == game) << after;
    EXPECT_EQ(MessageBox::Opened(), boxes) << after;
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << after;
    EXPECT_EQ(FocusName(), QLatin1String(focus)) << after;
  }
  // A click on an entry of a menu of the board, or of the bar itself.
  void ClickMenu(const char* menu, const char* entry = nullptr) {
    auto* bar = form1().menuBar();
    if (entry == nullptr) return ClickAt(bar, bar->actionGeometry(Find<QAction>(menu)));
    QMenu* opened = Find<QMenu>(menu);
    ClickAt(bar, bar->actionGeometry(opened->menuAction()));
    ASSERT_TRUE(opened->isVisible()) << menu;
    ClickAt(opened, opened->actionGeometry(Find<QAction>(entry)));
  }
  void ClickAt(QWidget* control, const QRect& place) {
    Click(control, {}, Qt::LeftButton, place.center());
  }
  // A row of the visitors' line-up, as a person chooses it.
  void ClickRow(const char* name, int row) {
    auto* list = Find<QListView>(name);
    ClickAt(list->viewport(), list->visualRect(list->model()->index(row, 0)));
  }

  // Ctrl and a click turn a label into its text field.
  void BeginName(const char* label) {
    QTest::keyPress(form1().windowHandle(), Qt::Key_Control);
    Click(Find(label), Qt::ControlModifier);
    QTest::keyRelease(form1().windowHandle(), Qt::Key_Control);
  }

  replay::ScriptedDialogs dialogs_;
  QuietDesktop quiet_;
};

// How a window that waits is closed: by Esc, its frame, a key, or a button with this name.
struct Way {
  const char* name;
  Qt::Key key = Qt::Key_unknown;  // none: a button, or the frame
};
constexpr Way kEsc{"Esc", Qt::Key_Escape};
constexpr Way kEnter{"Enter", Qt::Key_Return};
constexpr Way kFrame{"close"};

TEST_F(FocusTest, ComesBackFromEveryWindowAndBoxHoweverItIsClosed) {
  MakeDatabase("");
  StartGame();
  const auto click = [this](const char* name) { return [this, name] { Click(Find(name)); }; };
  const auto key = [this](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
    return [this, code, modifiers] { Press(&form1(), code, modifiers); };
  };
  const auto menu = [this](const char* name, const char* entry = nullptr) {
    return [this, name, entry] { ClickMenu(name, entry); };
  };
  struct Case {
    const char* name;
    std::function<void()> open;
    std::vector<Way> ways;
  };
  const std::vector<Case> cases{
      {"charts by key", key(Qt::Key_V), {kEsc, kFrame}},
      {"a chart by its number", key(Qt::Key_3, Qt::AltModifier), {kEsc, kFrame}},
      {"a chart by its label", click("lbl_chrt2"), {kEsc, kFrame}},
      {"sheet", click("lbl_STATS"), {kEsc, kFrame}},
      {"log", menu("mnuEventLog"), {kEsc, kFrame, {"cmd_Close"}}},
      {"plays", menu("mnuPlays"), {kEsc, kFrame, {"cmd_Close"}}},
      {"about", menu("About"), {kEsc, kEnter, kFrame, {"cmdOK"}, {"Label1"}}},
      {"about of the help", menu("mnuHelp", "mnuAbout"), {kEsc, kFrame}},
      {"database", menu("mnuStatistics"), {kEsc, kFrame}},
      {"copies", menu("mnuEdit", "mnuBringBack"), {kEsc, kFrame, {"cmd_CloseCopies"}}},
      {"season", menu("mnuTeams", "mnuSeason"), {kEsc, kFrame}},
      {"stolen base explained", click("lbl_SB"), {kEsc, kEnter, kFrame, {"CloseBox"}}},
      {"load, asked where",
       [this] {
         dialogs_.answers = {FromQt(folder_.filePath(QStringLiteral("Bees.txt")))};
         Click(Find("Command6"));
       },
       {kEsc, kFrame, {"CloseBox"}}},
  };
  // A game is under way.
  board().sheet.grd_VisStats.SetText(1, stat_column::kWalks, "1");
  for (const char* before : {"Picture1", "List1"}) {
    if (before == std::string("List1")) ClickRow("List1", 2);
    for (const Case& given : cases) {
      for (const Way& way : given.ways) {
        SCOPED_TRACE(std::string(given.name) + ", " + way.name + ", from " + before);
        const std::string game = GameText(board());
        bool closed = false;
        WhileWaiting([&] {
          closed = true;
          QWidget* box = MessageBox::Open();
          QWidget* window = box != nullptr ? box->window() : QApplication::activeModalWidget();
          if (way.key != Qt::Key_unknown) return Press(window, way.key);
          if (way.name == std::string(kFrame.name)) {
            box != nullptr ? box->close() : window->close();
            return;
          }
          QWidget* over = box != nullptr ? box : window;
          Click(over->findChild<QWidget*>(QLatin1String(way.name)));
        });
        given.open();
        while (!closed || QApplication::activeModalWidget() != nullptr) {
          QCoreApplication::processEvents();
        }
        EXPECT_TRUE(GameText(board()) == game);
        if (before == std::string("Picture1")) {
          PressWhereNoOneAimed("");
        } else {
          EXPECT_EQ(FocusName(), QLatin1String(before));
        }
      }
    }
  }
}

TEST_F(FocusTest, IsTheParksAfterFieldsPanelsMenusAndDialogs) {
  StartGame();
  board().state.cb_BaseTracker.Set(true);
  const auto click = [this](const char* name) { Click(Find(name)); };
  const auto press = [this](Qt::Key key) { Press(&form1(), key); };
  // An empty place of the park.
  const auto clickPark = [this] { Click(Find("Picture1"), {}, Qt::LeftButton, QPoint(2, 2)); };
  const auto openMenu = [this](const char* name) {
    ClickAt(form1().menuBar(), form1().menuBar()->actionGeometry(Find<QMenu>(name)->menuAction()));
  };
  const std::vector<std::pair<const char*, std::function<void()>>> cases{
      {"a digit, then a box for it",
       [&] { click("tb_BoxScoreBottom[22]"), press(Qt::Key_1), press(Qt::Key_Return); }},
      {"score pad", [&] { click("tb_BoxScoreBottom[22]"), click("lbl_2"); }},
      {"a cell, then the park", [&] { click("tb_BoxScore[0]"), clickPark(); }},
      {"a cell, then the keys",
       [&] { click("tb_BoxScore[0]"), click("lbl_keys"), press(Qt::Key_Escape); }},
      {"keys and their key", [&] { press(Qt::Key_Question), press(Qt::Key_Question); }},
      {"keys, clicked away", [&] { press(Qt::Key_Question), click("KeyPlate"); }},
      {"runner, then Esc", [&] { press(Qt::Key_S), press(Qt::Key_Escape); }},
      {"options by key", [&] { press(Qt::Key_O), press(Qt::Key_O); }},
      {"options, Esc and key", [&] { press(Qt::Key_O), press(Qt::Key_Escape), press(Qt::Key_O); }},
      {"options, their X", [&] { press(Qt::Key_O), click("Label9"); }},
      {"options by the menu and X", [&] { ClickMenu("mnu_Options"), click("Label9"); }},
      {"a check of the options by mouse",
       [&] { ClickMenu("mnu_Options"), click("cb_MuteDice"), ClickMenu("mnu_Options"); }},
      {"path of photos, Esc",
       [&] {
         ClickMenu("mnu_Options"), BeginName("lbl_PhotoPath"), press(Qt::Key_Escape),
             click("Label9");
       }},
      {"path of photos and the options' X",
       [&] { ClickMenu("mnu_Options"), BeginName("lbl_PhotoPath"), click("Label9"); }},
      {"name of a chart, Enter", [&] { BeginName("lbl_chrt4"), press(Qt::Key_Return); }},
      {"name of a chart, Esc", [&] { BeginName("lbl_chrt4"), press(Qt::Key_Escape); }},
      {"EDIT, its field, Esc",
       [&] { click("Check1"), click("tb_List1edit"), press(Qt::Key_Escape), click("Check1"); }},
      {"EDIT off in its field", [&] { click("Check1"), click("tb_List1edit"), click("Check1"); }},
      {"extra innings closed in a cell",
       [&] { click("cb_Xinnings"), click("tb_BoxScore[12]"), click("cb_Xinnings"); }},
      {"menu, Esc",
       [&] { openMenu("mnuEdit"), Press(QApplication::activePopupWidget(), Qt::Key_Escape); }},
      {"menu, its caption", [&] { openMenu("mnuHelp"), openMenu("mnuHelp"); }},
      {"menu by key, Esc", [&] { press(Qt::Key_F10), press(Qt::Key_Escape); }},
      {"dialogs, cancelled",
       [&] {
         for (const char* name : {"Command9", "img_VisLogo"}) click(name);
       }},
      {"help, rules, donation",
       [&] {
         for (const char* name : {"lbl_help", "lbl_rules"}) click(name);
       }},
      {"base tracker", [&] { click("lbl_tracker"); }},
      {"outcomes hidden and shown",
       [&] { ClickMenu("mnu_Options"), click("chk_Ctrls"), click("chk_Ctrls"), click("Label9"); }},
      {"new game and its box",
       [&] {
         AnswerBoxes({Qt::Key_Return});
         Press(&form1(), Qt::Key_N, Qt::ControlModifier);
       }},
  };
  desk_->aids().cb_QuickBoxes.Set(true);
  for (const auto& [name, act] : cases) {
    act();
    PressWhereNoOneAimed(name);
    if (HasFatalFailure()) return;
  }
}

TEST_F(FocusTest, KeysTakeItRoundThePanels) {
  StartGame();
  QStringList round;
  for (int i = 0; i < 5; ++i) {
    Press(&form1(), Qt::Key_F6);
    round += FocusName();
  }
  EXPECT_EQ(round[0], QStringLiteral("List1"));
  EXPECT_EQ(round[2], QStringLiteral("List2"));
  EXPECT_EQ(round[4], QStringLiteral("List1"));
  Press(&form1(), Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_EQ(FocusName(), round[3]);
  Press(&form1(), Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_EQ(FocusName(), QStringLiteral("pb_Player1"));
  Press(&form1(), Qt::Key_Escape);
  EXPECT_EQ(FocusName(), QStringLiteral("Picture1"));
  Press(&form1(), Qt::Key_O);
  EXPECT_TRUE(board().state.fra_Options_visible.value());
  EXPECT_TRUE(Find("fra_Options")->isAncestorOf(form1().focusWidget()));
  Press(&form1(), Qt::Key_Escape);
  PressWhereNoOneAimed("options");
}

TEST_F(FocusTest, NumberRowCountsByItsPlaceAndBIsAWalk) {
  const auto key = [](int code, quint32 place, Qt::KeyboardModifiers modifiers = {}) {
    return KeyByPlace(QKeyEvent(QEvent::KeyPress, code, modifiers, place, 0, 0));
  };
  EXPECT_EQ(key(Qt::Key_Ampersand, 10), Qt::Key_1);
  EXPECT_EQ(key(Qt::Key_Ccedilla, 18), Qt::Key_9);
  EXPECT_EQ(key(Qt::Key_Agrave, 19), Qt::Key_Agrave);
  EXPECT_EQ(key(Qt::Key_Question, 20, Qt::ShiftModifier), Qt::Key_Question);
  EXPECT_EQ(key(Qt::Key_Exclam, 10, Qt::ShiftModifier), Qt::Key_Exclam);
  StartGame();
  WhileWaiting([&] { Press(&form1(), Qt::Key_Return); });
  Press(&form1(), Qt::Key_B);
  EXPECT_EQ(board().sheet.grd_VisStats.Text(1, stat_column::kWalks), "1");
}

// A screen reader toggles, and selects, where a person would click.
TEST_F(FocusTest, TogglesDoWhatClicksDo) {
  StartGame();
  Find<QCheckBox>("cb_BaseTracker")->toggle();
  EXPECT_TRUE(board().state.pb_BaseTracker_visible.value());
  Find<QAbstractButton>("Option6")->toggle();
  EXPECT_TRUE(board().state.Option6.value());
  EXPECT_FALSE(board().state.Option5.value());
  auto* list = Find<QListView>("List2");
  list->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(board().state.BatterOf.value(), "V") << "the focus names nobody";
  list->selectionModel()->select(list->model()->index(3, 0), QItemSelectionModel::ClearAndSelect);
  EXPECT_EQ(board().state.lbl_Selected.value(), "Bees 4");
}

}  // namespace
}  // namespace dtb
