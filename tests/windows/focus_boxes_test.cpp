// After notices, menus, dialogs and the boxes of other windows, Space and Enter change nothing.
#include <QFileDialog>
#include <QLineEdit>
#include <QTabWidget>

#include "focus_test.h"
#include "game/outcomes.h"

namespace dtb {
namespace {

TEST_F(FocusTest, IsTheParksAfterNoticesAndMarkers) {
  for (const bool byKey : {false, true}) {
    for (const char* answer : {"cmd_TurnOn", "cmd_NotNow"}) {
      BeginAnew();  // the offer comes once in the program's life
      ASSERT_TRUE(Find("fra_Offer")->isVisible());
      Use(answer, byKey);
      PressWhereNoOneAimed(answer);
    }
    KeepTheBases();
    RecordOutcome(board(), Outcome::Double);
    RecordOutcome(board(), Outcome::Double);
    ASSERT_TRUE(Find("fra_Scored")->isVisible());
    Use("cmd_HoldAtThird", byKey);
    PressWhereNoOneAimed("At third");
    for (const char* end : {"cmd_ParkPlacesDone", "cmd_ParkPlacesCancel", ""}) {
      board().state.fra_Options_visible.Set(true);
      Use("cmd_ParkPlaces", byKey);
      ASSERT_TRUE(Find("fra_ParkPlaces")->isVisible());
      *end != '\0' ? Use(end, byKey) : Press(&form1(), Qt::Key_Escape);
      EXPECT_FALSE(Find("fra_ParkPlaces")->isVisible());
      PressWhereNoOneAimed(std::string("markers ") + end);
      board().state.fra_Options_visible.Set(false);
    }
    // The notice goes by itself while its button has the focus.
    RecordOutcome(board(), Outcome::Homer);
    RecordOutcome(board(), Outcome::Double);
    RecordOutcome(board(), Outcome::Double);
    ASSERT_TRUE(Find("fra_Scored")->isVisible());
    Focus("cmd_HoldAtThird");
    RecordOutcome(board(), Outcome::Strikeout);
    PressWhereNoOneAimed("a notice that is over");
    board().state.tb_OutsCount.Set("51");
    PutAtBat(board(), Side::Home);
    board().state.List2.Select(0);
    for (int run = 0; run < 9 && !Find("fra_GameOver")->isVisible(); ++run) {
      RecordOutcome(board(), Outcome::Homer);
    }
    ASSERT_TRUE(Find("fra_GameOver")->isVisible());
    for (const ClosedBy& way : {kEsc, kFrame}) {
      WhileWaiting([&] { Close(way); });
      Use("cmd_FinalStats", byKey);
      if (!byKey) PressWhereNoOneAimed("STATS");
    }
    Use("cmd_FinalClose", byKey);
    PressWhereNoOneAimed("Close");
  }
}

// A right click opens the field's menu. Once it is closed the visit of the field goes on, and Esc
// or a click elsewhere ends it.
TEST_F(FocusTest, IsTheParksAfterTheMenuOfAField) {
  StartGame();
  Click(Find("Check1"));
  const auto begin = [this](const char* field) {
    if (field == std::string("tb_List1edit")) return Click(Find(field));
    ClickMenu("mnu_Options");
    BeginName(field);
  };
  const auto end = [this](const char* field) {
    if (field != std::string("tb_List1edit")) Click(Find("Label9"));
  };
  for (const char* name : {"tb_List1edit", "lbl_PhotoPath"}) {
    for (const bool byKey : {true, false}) {
      SCOPED_TRACE(testing::Message() << name << (byKey ? ", Esc" : ", click"));
      begin(name);
      auto* field = qobject_cast<QLineEdit*>(form1().focusWidget());
      ASSERT_NE(field, nullptr);
      Click(field, {}, Qt::RightButton);
      QWidget* menu = QApplication::activePopupWidget();
      ASSERT_NE(menu, nullptr);
      const auto clickPark = [this] { Click(Find("Picture1"), {}, Qt::LeftButton, {2, 2}); };
      if (byKey) {
        Press(menu, Qt::Key_Escape);
        EXPECT_EQ(form1().focusWidget(), field);
        Press(&form1(), Qt::Key_Escape);
      } else {
        QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, QPoint(-40, -40));
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        clickPark();
      }
      PressWhereNoOneAimed("menu");
      end(name);
      PressWhereNoOneAimed("panel");
    }
  }
}

// The dialog that Qt shows for the port, in the window that it comes up over.
struct OwnFileDialogs : replay::ScriptedDialogs {
  std::optional<std::filesystem::path> SaveFile(const SaveFileRequest& /*request*/) override {
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.exec();
    return Next();
  }
};

class SavingFocusTest : public FocusTest {
 protected:
  SavingFocusTest() { setup_.dialogs = &own_; }
  OwnFileDialogs own_;
};

TEST_F(SavingFocusTest, StaysInTheLogAfterItsFileDialogAndItsBox) {
  StartGame();
  const QString file = folder_.filePath(QStringLiteral("Log.txt"));
  for (const ClosedBy& way : {kEsc, kFrame}) {
    for (const bool written : {false, true}) {
      for (const bool byKey : {false, true}) {
        SCOPED_TRACE(testing::Message() << way.name << written << byKey);
        QWidget* log = nullptr;
        WhileWaiting([&] {
          log = QApplication::activeModalWidget();
          own_.answers = {written ? std::optional(replay::PathOfFile(file)) : std::nullopt};
          WhenTrue(
              [] {
                return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()) != nullptr;
              },
              [&] {
                if (written) CloseBoxes({way});
                Close(way);
              });
          Use("cmd_Save", byKey);
          if (!byKey) PressWhereNoOneAimedIn(log, "the dialog of the log");
          Press(log, Qt::Key_Escape);
        });
        ClickMenu("mnuEventLog");
        while (log == nullptr || QApplication::activeModalWidget() != nullptr) {
          QCoreApplication::processEvents();
        }
        PressWhereNoOneAimed("the log");
      }
    }
  }
}

TEST_F(FocusTest, PressesNothingOnTheSheetAfterItsBoxesAndItsProof) {
  MakeDatabase("");
  desk_->aids().cb_QuickBoxes.Set(true);
  StartGame();
  RecordOutcome(board(), Outcome::Walk);
  board().state.List2.Select(0);
  board().sheet.grd_VisStats.SetText(10, stat_column::kWalks, "2");
  board().sheet.grd_VisStats.SetText(2, stat_column::kAtBats, "x");
  const auto list = [this](const char* name) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Click(Find("ProofPlate"));
    ASSERT_NE(Find("ProofList")->findChild<QWidget*>(QLatin1String(name)), nullptr) << name;
    Click(Find("ProofList")->findChild<QWidget*>(QLatin1String(name)));
  };
  struct Case {
    const char* name;
    std::function<void()> act;
  };
  WhileWaiting([&] {
    QWidget* sheet = QApplication::activeModalWidget();
    const std::vector<Case> cases{
        {"proof, Esc", [&] { Click(Find("ProofPlate")), Press(sheet, Qt::Key_Escape); }},
        {"proof, its key", [&] { Press(sheet, Qt::Key_P, Qt::ControlModifier); }},
        {"proof, Close", [&] { list("CloseProof"); }},
        {"proof, a line", [&] { list("Finding1"); }},
        {"proof, put right", [&] { list("PutRight1"); }},
        {"proof, put right and taken back", [&] { Press(sheet, Qt::Key_Z, Qt::ControlModifier); }},
        {"proof, taken back on a button",
         [&] {
           list("PutRight1");
           QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
           Find("ProofList")->findChild<QWidget*>("PutAllRight") != nullptr ? Focus("PutAllRight")
                                                                            : Focus("CloseProof");
           Press(sheet, Qt::Key_Z, Qt::ControlModifier);
         }},
        {"proof, gone with its list", [&] { list("CloseProof"); }},
        {"report, No", [&] { CloseBoxes({kEsc}), Click(Find("cmd_Report")); }},
        {"save, No", [&] { CloseBoxes({kEsc}), Click(SaveButton()); }},
        {"save, Back",
         [&] {
           CloseBoxes({kYes, kCloseBox}), Click(SaveButton());
         }},
    };
    for (const auto& [name, act] : cases) {
      act();
      PressWhereNoOneAimedIn(sheet, name);
      if (HasFatalFailure()) break;
    }
    sheet->close();
  });
  Click(Find("lbl_STATS"));
  PressWhereNoOneAimed("sheet");
}

// The box that tells of a save, by each of its answers; the button of the save is out of use then.
TEST_F(FocusTest, IsOnTheSheetAndThenTheParksAfterASave) {
  for (const bool byKey : {false, true}) {
    for (const ClosedBy& way :
         {kEsc, kEnter, kFrame, kCloseBox, ClosedBy{"Stay here"}, ClosedBy{"New game"}}) {
      SCOPED_TRACE(testing::Message() << way.name << (byKey ? ", by key" : ", by mouse"));
      QFile::remove(folder_.filePath(QStringLiteral("DTB.mdb")));
      MakeDatabase("");
      BeginAnew();
      RecordOutcome(board(), Outcome::Walk);
      board().state.List2.Select(0);
      WhileWaiting([&] {
        QWidget* sheet = QApplication::activeModalWidget();
        CloseBoxes({kYes, way});
        Use(SaveButton(), byKey);
        const bool stays = way.name != std::string("New game");
        EXPECT_EQ(QApplication::activeModalWidget(), stays ? sheet : nullptr);
        if (!stays) return;
        EXPECT_FALSE(board().sheet.Command2_enabled.value());
        PressWhereNoOneAimedIn(sheet, "save");
        Press(sheet, Qt::Key_Escape);
        if (sheet->isVisible()) Press(sheet, Qt::Key_Escape);
      });
      Click(Find("lbl_STATS"));
      PressWhereNoOneAimed("save");
    }
  }
}

TEST_F(FocusTest, PressesNothingInTheBrowserAfterItsBoxes) {
  struct Case {
    int tab;
    const char* button;
    std::vector<std::vector<ClosedBy>> ways;  // boxes one after the other
  };
  const std::vector<Case> cases{
      {5, "Command36", {{kEsc}, {kEnter}, {kFrame}, {kCloseBox}, {kYes, kEsc}}},
      {5, "Command33", {{kEsc}, {kEnter}, {kFrame}, {kCloseBox}}},
      {7, "cmd_Reset", {{kEsc}, {kEnter}, {kFrame}, {kCloseBox}, {kYes}}},
      {0, "cmd_Purge", {{kEsc}, {kEnter}, {kFrame}, {kCloseBox}}},
      {0, "cmd_TakeOut", {{kEsc}, {kEnter}, {kFrame}, {kCloseBox}, {kYes, kEsc}}},
  };
  MakeDatabase(
      "INSERT INTO BoxScores (Team, I1, Runs, Hits, Errors, Host, GameID) VALUES "
      "('Ants', 1, 1, 4, 0, 'a_VIS', '041219600101'),"
      "('Bees', 0, 0, 2, 1, 'b_HOME', '041219600101'),"
      "('Bees', 0, 0, 2, 1, 'a_VIS', '041319600101'),"
      "('Ants', 1, 1, 4, 0, 'b_HOME', '041319600101');"
      "INSERT INTO WinLoss VALUES ('Ants', 1, NULL), ('Bees', NULL, 1);"
      "INSERT INTO Matchups VALUES ('Ants at Bees', 1);");
  StartGame();
  Open([&] {
    auto* tabs = Part<QTabWidget>("SSTab1");
    for (const auto& [tab, button, allWays] : cases) {
      for (const std::vector<ClosedBy>& ways : allWays) {
        const std::string after = std::string(button) + ", " + ways.back().name;
        tabs->setCurrentIndex(tab);
        QCoreApplication::processEvents();
        for (const char* name : {"MSHFlexGrid1", "MSHFlexGrid9"}) {
          auto* grid = Part<StatGridView>(name);
          if (grid->isVisible()) ClickAt(grid->viewport(), grid->CellRect(1, 1));
        }
        CloseBoxes(ways);
        Click(Part(button));
        QCoreApplication::processEvents();
        EXPECT_EQ(MessageBox::Open(), nullptr) << after;
        PressWhereNoOneAimedIn(&form(), after);
        if (HasFatalFailure()) return form().reject();
      }
    }
    form().reject();
  });
  PressWhereNoOneAimed("database");
}

}  // namespace
}  // namespace dtb
