// The window "Box" and the line of decisions on the sheet.
#include "windows/box/box_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "game/history.h"
#include "game/outcomes.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

class BoxWindowTest : public WindowTest {
 protected:
  // The visitors lead by two after the top of the first.
  void StartKept() {
    StartGame();
    desk_->aids().cb_QuickBoxes.Set(true);
    board().state.cb_KeepBases.Set(true);
    for (const Outcome outcome : {Outcome::Walk, Outcome::Homer, Outcome::Groundout}) {
      RecordOutcome(board(), outcome);
    }
  }
  // Opens a window by its key, looks at it, and closes it.
  void Open(Qt::Key key, const std::function<void(QWidget*)>& look) {
    bool looked = false;
    WhileWaiting([&] {
      QWidget* window = QApplication::activeModalWidget();
      look(window);
      looked = true;
      Press(window, Qt::Key_Escape);
    });
    form1().activateWindow();
    while (!form1().isActiveWindow()) QCoreApplication::processEvents();
    Press(&form1(), key, key == Qt::Key_B ? Qt::ControlModifier : Qt::NoModifier);
    while (!looked || QApplication::activeModalWidget() != nullptr) {
      QCoreApplication::processEvents();
    }
  }
  static QString Clipboard() { return QGuiApplication::clipboard()->text(); }
};

TEST_F(BoxWindowTest, FollowsTheGameAndCopiesIt) {
  Open(Qt::Key_B, [&](QWidget* window) {
    EXPECT_TRUE(window->findChild<QTextBrowser*>("tb_Box")->toPlainText().contains("not known"))
        << "an empty board has a box score, too";
  });
  StartKept();
  Open(Qt::Key_B, [&](QWidget* window) {
    auto* box = qobject_cast<BoxWindow*>(window);
    ASSERT_NE(box, nullptr);
    while (!box->settled()) QCoreApplication::processEvents();
    auto* text = window->findChild<QTextBrowser*>("tb_Box");
    EXPECT_EQ(window->findChild<QLabel*>("lbl_Headline")->text(), "Ants 2, Bees 0");
    RecordOutcome(board(), Outcome::Homer);
    EXPECT_EQ(window->findChild<QLabel*>("lbl_Headline")->text(), "Ants 3, Bees 0");
    board().history->Undo(board());
    Click(window->findChild<QWidget*>("cmd_CopyText"));
    EXPECT_TRUE(Clipboard().startsWith("Ants 2, Bees 0\n\nAnts   "));
    Click(window->findChild<QWidget*>("cmd_Story"));
    EXPECT_TRUE(text->toPlainText().startsWith("Scoring plays\nTop 1, 0 outs: 2 homers"))
        << FromQt(text->toPlainText());
    Click(window->findChild<QWidget*>("cmd_CopyText"));
    EXPECT_TRUE(Clipboard().contains("\nTop of the 1st, Ants at bat, 10 pitching\n"));
    const QString before = Clipboard();
    const auto boxes = AnswerBoxes({Qt::Key_Return});
    Click(window->findChild<QWidget*>("cmd_CopyDay"));
    EXPECT_EQ(boxes->size(), 1) << "there is no database";
    EXPECT_EQ(Clipboard(), before);
  });
}

TEST_F(BoxWindowTest, DecisionsAreProposedAndChangedInOneStep) {
  StartKept();
  auto* stats = Find("lbl_STATS");
  const auto textOf = [](QWidget* sheet, const char* name) {
    return sheet->findChild<QPushButton*>(name)->text();
  };
  WhileWaiting([&] {
    QWidget* sheet = QApplication::activeModalWidget();
    EXPECT_EQ(textOf(sheet, "cmd_Win"), "W: 10");
    EXPECT_EQ(textOf(sheet, "cmd_Save"), "S: -");
    auto* menu = sheet->findChild<QMenu*>("cmd_WinMenu");
    emit menu->aboutToShow();
    const auto choose = [menu](const QString& text) {
      for (QAction* action : menu->actions()) {
        if (action->text() == text) return action->trigger();
      }
      FAIL() << FromQt(text);
    };
    choose("Bees 10");
    EXPECT_EQ(textOf(sheet, "cmd_Win"), "W: 10");
    EXPECT_EQ(board().sheet.ChosenDecisions.value(), "W H Bees 10\n");
    emit menu->aboutToShow();
    choose("Nobody");
    EXPECT_EQ(textOf(sheet, "cmd_Win"), "W: -");
    board().history->Undo(board(), 2);
    EXPECT_EQ(board().sheet.ChosenDecisions.value(), "");
    EXPECT_EQ(textOf(sheet, "cmd_Win"), "W: 10");
    Press(sheet, Qt::Key_Escape);
  });
  Click(stats);
  while (QApplication::activeModalWidget() != nullptr) QCoreApplication::processEvents();
}

}  // namespace
}  // namespace dtb
