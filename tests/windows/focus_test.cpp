// Where the focus is after a window, a box or a field: where Space and Enter change nothing.
#include <QCheckBox>
#include <QListView>

#include "game/history.h"
#include "platform/qt/qt_keyboard.h"
#include "window_test.h"
#include "windows/boxes/message_box.h"

namespace dtb {
namespace {

class FocusTest : public WindowTest {
 protected:
  QString FocusName() {
    const QWidget* focus = form1().focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
  }
  // What a person presses who believes that the board has the keys.
  void PressWhereNoOneAimed(const std::string& after) {
    const std::string game = GameText(board());
    const int boxes = MessageBox::Opened();
    for (const auto key : {Qt::Key_Space, Qt::Key_Return}) Press(&form1(), key);
    EXPECT_TRUE(GameText(board()) == game) << after;
    EXPECT_EQ(MessageBox::Opened(), boxes) << after;
    EXPECT_EQ(FocusName(), QStringLiteral("Picture1")) << after;
  }
};

TEST_F(FocusTest, FallsToTheParkAfterFieldsAndWindows) {
  StartGame();
  for (const char* name : {"tb_BoxScoreBottom[22]", "tb_OUT", "tb_BoxScore[0]"}) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
      Click(Find(name));
      Press(&form1(), key);
      PressWhereNoOneAimed(name);
    }
  }
  Click(Find("tb_BoxScoreBottom[22]"));
  Type(&form1(), "1");
  Press(&form1(), Qt::Key_Return);
  WhileWaiting([&] { Press(QApplication::activeModalWidget(), Qt::Key_Escape); });
  Press(&form1(), Qt::Key_V);
  PressWhereNoOneAimed("charts");
  WhileWaiting([&] { QApplication::activeModalWidget()->close(); });
  Click(Find("lbl_STATS"));
  PressWhereNoOneAimed("sheet");
  Click(Find("tb_BoxScoreBottom[22]"));
  Click(Find("lbl_2"));
  PressWhereNoOneAimed("score pad");
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
