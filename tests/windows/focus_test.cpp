// Where the focus is after a window or a field, and where the keys take it.
#include "focus_test.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListView>

#include "game/new_game.h"
#include "platform/qt/qt_keyboard.h"

namespace dtb {
namespace {

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
    std::vector<ClosedBy> ways;
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
      {"stolen base explained", click("lbl_SB"), {kEsc, kEnter, kFrame, kCloseBox}},
      {"load, asked where",
       [this] {
         dialogs_.answers = {FromQt(folder_.filePath(QStringLiteral("Bees.txt")))};
         Click(Find("Command6"));
       },
       {kEsc, kFrame, kCloseBox}},
  };
  // A game is under way.
  board().sheet.grd_VisStats.SetText(1, stat_column::kWalks, "1");
  for (const char* before : {"Picture1", "List1"}) {
    if (before == std::string("List1")) ClickRow("List1", 2);
    for (const Case& given : cases) {
      for (const ClosedBy& way : given.ways) {
        SCOPED_TRACE(std::string(given.name) + ", " + way.name + ", from " + before);
        const std::string game = GameText(board());
        bool closed = false;
        WhileWaiting([&] {
          closed = true;
          Close(way);
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
  EXPECT_EQ(FocusName(), QStringLiteral("cb_BaseTracker"));
  Press(&form1(), Qt::Key_Escape);
  PressWhereNoOneAimed("options");
}

TEST_F(FocusTest, NumberRowCountsByItsPlaceAndBIsAWalk) {
#ifdef _WIN32
  constexpr quint32 kBeforeOne = 1;
#else
  constexpr quint32 kBeforeOne = 9;
#endif
  const auto key = [](int code, quint32 place, Qt::KeyboardModifiers modifiers = {}) {
    return KeyByPlace(QKeyEvent(QEvent::KeyPress, code, modifiers, kBeforeOne + place, 0, 0));
  };
  EXPECT_EQ(key(Qt::Key_Ampersand, 1), Qt::Key_1);
  EXPECT_EQ(key(Qt::Key_Ccedilla, 9), Qt::Key_9);
  EXPECT_EQ(key(Qt::Key_Agrave, 10), Qt::Key_Agrave);
  EXPECT_EQ(key(Qt::Key_Question, 11, Qt::ShiftModifier), Qt::Key_Question);
  EXPECT_EQ(key(Qt::Key_Exclam, 1, Qt::ShiftModifier), Qt::Key_Exclam);
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
