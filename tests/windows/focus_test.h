// What the tests of the focus share: windows and boxes closed in every way, and what a person
// presses then who believes that nothing has the keys.
#pragma once

#include <QMenu>
#include <QMenuBar>

#include "browser_form_test.h"
#include "game/history.h"
#include "game/keep_bases.h"
#include "replay/play_table.h"
#include "windows/boxes/message_box.h"

namespace dtb {

// How a box, or a window that waits, is closed: by a key, its frame, or a button of this name or
// with this caption.
struct ClosedBy {
  const char* name;
  Qt::Key key = Qt::Key_unknown;  // none: a button, or the frame
};
inline constexpr ClosedBy kEsc{"Esc", Qt::Key_Escape};
inline constexpr ClosedBy kEnter{"Enter", Qt::Key_Return};
inline constexpr ClosedBy kYes{"Yes", Qt::Key_Y};
inline constexpr ClosedBy kFrame{"close"};
inline constexpr ClosedBy kCloseBox{"CloseBox"};

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
  // The same in a window that waits over the board.
  void PressWhereNoOneAimedIn(QWidget* window, const std::string& after) {
    QCoreApplication::processEvents();
    ASSERT_EQ(QApplication::activeModalWidget(), window) << after;
    const std::string game = GameText(board());
    const std::string saved = SavedRows();
    const int boxes = MessageBox::Opened();
    for (const auto key : {Qt::Key_Space, Qt::Key_Return}) Press(window, key);
    QCoreApplication::processEvents();
    EXPECT_TRUE(GameText(board()) == game) << after;
    EXPECT_EQ(SavedRows(), saved) << after;
    EXPECT_EQ(MessageBox::Opened(), boxes) << after;
    EXPECT_EQ(QApplication::activeModalWidget(), window) << after;
  }
  // How many rows each table of the database has.
  std::string SavedRows() {
    const QString file = folder_.filePath(QStringLiteral("DTB.mdb"));
    if (!QFile::exists(file)) return "";
    SQLite::Database database(FromQt(file));
    std::string rows;
    for (const char* table : {"BoxScores", "Batting", "Pitching", "WinLoss", "Matchups"}) {
      rows += database.execAndGet(std::string("SELECT count(*) FROM ") + table).getString() + ' ';
    }
    return rows;
  }
  // The box that is open, or else the window in front.
  void Close(const ClosedBy& way) {
    MessageBox* box = MessageBox::Open();
    QWidget* window = box != nullptr ? box->window() : QApplication::activeModalWidget();
    QWidget* over = box != nullptr ? box : window;
    if (way.key != Qt::Key_unknown) return Press(window, way.key);
    if (way.name == std::string(kFrame.name)) {
      over->close();
      return;
    }
    QWidget* answer = box != nullptr ? box->ButtonOf(QLatin1String(way.name)) : nullptr;
    Click(answer != nullptr ? answer : over->findChild<QWidget*>(QLatin1String(way.name)));
  }
  // The boxes that come from now on, one after the other.
  void CloseBoxes(const std::vector<ClosedBy>& ways, const QPointer<MessageBox>& last = nullptr) {
    if (ways.empty()) return;
    const auto newBox = [last] {
      return MessageBox::Open() != nullptr && MessageBox::Open() != last;
    };
    WhenTrue(newBox, [=, this] {
      CloseBoxes({ways.begin() + 1, ways.end()}, MessageBox::Open());
      Close(ways.front());
    });
  }
  void Focus(const char* control) { Find(control)->setFocus(Qt::TabFocusReason); }
  // By the mouse, or by the keyboard.
  void Use(QWidget* control, bool byKey) {
    control->window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(control->window()));
    if (!byKey) return Click(control);
    control->setFocus(Qt::TabFocusReason);
    Press(control->window(), Qt::Key_Space);
  }
  void Use(const char* control, bool byKey) { Use(Find(control), byKey); }
  // The board has a button of this name, too.
  QWidget* SaveButton() { return Find("Form2")->findChild<QWidget*>(QStringLiteral("Command2")); }
  // A game in a program that was never used before.
  void BeginAnew() {
    desk_ = nullptr;
    QFile::remove(setup_.settingsFile);
    desk_ = std::make_unique<Desk>(setup_);
    desk_->Open();
    desk_->aids().cb_QuickBoxes.Set(true);
    StartGame();
  }
  void KeepTheBases() {
    board().state.cb_KeepBases.Set(true);
    KeepBasesClicked(board());
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

}  // namespace dtb
