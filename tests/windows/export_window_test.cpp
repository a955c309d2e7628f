#include <QClipboard>
#include <QFileDialog>
#include <QProgressBar>
#include <QPushButton>
#include <limits>

#include "base/paths.h"
#include "platform/quiet_desktop.h"
#include "windows/boxes/busy.h"
#include "windows/browser_form_test.h"
#include "windows/sheet/sheet_window.h"

namespace dtb {
namespace {

// Writes down what the program opens outside itself.
struct Outside : QuietDesktop {
  void Open(const std::string& page) override { opened.push_back(page); }
  bool Installed() override { return installed; }
  bool OpenWorkbook(const std::filesystem::path& file) override {
    opened.push_back(TextOf(file));
    return opens;
  }

  bool installed = true;
  bool opens = true;
  std::vector<std::string> opened;
};

class ExportWindowTest : public BrowserFormTest {
 protected:
  ExportWindowTest() {
    setup_.pages = &outside_;
    setup_.spreadsheets = &outside_;
  }

  QStringList Reports() const {
    return QDir(folder_.filePath(QStringLiteral("Game Rpts")))
        .entryList(QDir::Files | QDir::Hidden);
  }
  QString Opened() const {
    return outside_.opened.size() == 1 ? ToQt(outside_.opened.front()) : QString();
  }
  ProgressPanel* Panel() { return form().findChild<ProgressPanel*>(); }

  void WaitForFocus() {
    while (!form().isAncestorOf(QApplication::focusWidget())) QCoreApplication::processEvents();
  }

  // From here on the panel shows at once, or never.
  static void SetMoment(int milliseconds) { ProgressPanel::moment = milliseconds; }
  ~ExportWindowTest() override { SetMoment(usualMoment_); }

  Outside outside_;

 private:
  const int usualMoment_ = ProgressPanel::moment;
};

TEST_F(ExportWindowTest, SheetGoesIntoAPage) {
  StartGame();
  board().sheet.lbl_VisTeam.Set("St. Ants");
  const auto messages = AnswerBoxes({Qt::Key_Y, Qt::Key_N});
  WhileWaiting([&] {
    auto* sheet = Find<SheetWindow>("Form2");
    WhenTrue(
        [] { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()) != nullptr; },
        [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
    Click(Find("cmd_Report"));
    EXPECT_TRUE(sheet->isVisible());
    Press(sheet, Qt::Key_Escape);
  });
  Click(Find("lbl_STATS"));
  ASSERT_EQ(Reports().size(), 1);
  EXPECT_TRUE(Reports().front().startsWith(QStringLiteral("St. Ants_at_Bees_")));
  EXPECT_TRUE(Reports().front().endsWith(QStringLiteral(".html"))) << FromQt(Reports().front());
  EXPECT_EQ(QFileInfo(Opened()).fileName(), Reports().front());
  EXPECT_TRUE(messages->value(0).contains(QStringLiteral("Do you want to create it?")));
}

TEST_F(ExportWindowTest, SheetGoesIntoAWorkbook) {
  StartGame();
  outside_.installed = false;
  const auto messages = AnswerBoxes({Qt::Key_Return, Qt::Key_N, Qt::Key_N});
  WhileWaiting([&] {
    auto* sheet = Find<SheetWindow>("Form2");
    Click(Find("cmd_Excel"));
    EXPECT_TRUE(messages->value(0).contains(QStringLiteral("Excel is not installed")));
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(Reports(), QStringList());
    outside_.installed = true;
    Find<StatGridView>("grd_HomeStats")->SetCurrentCell(3, 3);
    Click(Find("cmd_Excel"));
    EXPECT_TRUE(messages->value(2).contains(Reports().value(0))) << "it lies there";
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  });
  Click(Find("lbl_STATS"));
  EXPECT_EQ(QFileInfo(Opened()).fileName(), Reports().value(0));
  EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QStringLiteral("\rAnts\t")));
  EXPECT_TRUE(form1().isEnabled());
}

TEST_F(ExportWindowTest, BrowserGoesIntoWorkbooks) {
  MakeDatabase("INSERT INTO Matchups VALUES ('Ants  vs  Bees', 2)");
  const auto messages = AnswerBoxes({Qt::Key_N, Qt::Key_Return, Qt::Key_N, Qt::Key_N});
  Open([this] {
    Click(Part("Command15"));
    EXPECT_EQ(Reports().size(), 1);
    EXPECT_TRUE(form().isVisible());
    outside_.installed = false;
    Click(Part("Command16"));
    EXPECT_TRUE(form().isVisible());
    EXPECT_EQ(Reports().size(), 1);
    outside_.installed = true;
    board().platform.settings.Write("labels", "lbl_Champ", "nobody");
    Click(Part("Command16"));
    EXPECT_FALSE(form().isVisible());
  });
  EXPECT_TRUE(messages->value(0).startsWith(
      QStringLiteral("MS Access database tables have been exported")));
  EXPECT_EQ(messages->value(1), QStringLiteral("Excel is not installed"));
  EXPECT_EQ(board().platform.settings.Read("labels", "lbl_Champ", "?"), "")
      << "the bracket is kept";
  EXPECT_TRUE(Opened().contains(QStringLiteral("DTB_DataGrids_")));
  EXPECT_TRUE(form1().isMinimized());
  EXPECT_EQ(QGuiApplication::clipboard()->text(),
            QStringLiteral("\tMatchup\tGames\t\r\n\tAnts  vs  Bees\t2\t"));
}

TEST_F(ExportWindowTest, WorkbookThatNothingOpensIsNamed) {
  MakeDatabase("");
  outside_.opens = false;
  const auto messages = AnswerBoxes({Qt::Key_Y});
  Open([this] { Click(Part("Command16")); });
  EXPECT_TRUE(messages->value(0).contains(Reports().value(0))) << FromQt(messages->value(0));
  EXPECT_FALSE(form1().isMinimized());
  EXPECT_EQ(QFileInfo(ToQt(outside_.opened.back())).fileName(), QStringLiteral("Game Rpts"));
}

TEST_F(ExportWindowTest, LongExportsAreCancelled) {
  SetMoment(0);
  MakeDatabase(
      "INSERT INTO Batting (Batter, k, Team) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT "
      "i + 1 FROM n WHERE i < 100) SELECT 'Man ' || i, i, 'Ants' FROM n");
  const std::vector<std::function<void()>> ways{
      [this] { Click(Panel()->findChild<QPushButton*>()); },
      [this] { Press(&form(), Qt::Key_Escape); }, [this] { Press(&form(), Qt::Key_Space); },
      [this] { Press(&form(), Qt::Key_Return); }};
  Open([&] {
    WaitForFocus();
    for (const char* button : {"Command15", "Command16"}) {
      for (const auto& cancel : ways) {
        bool shown = false;
        Part(button)->setFocus();
        WhenTrue([this] { return Panel() != nullptr && Panel()->isVisible(); },
                 [&] { shown = true, cancel(); });
        Click(Part(button));
        EXPECT_TRUE(shown);
        EXPECT_EQ(Reports(), QStringList()) << button << &cancel - ways.data();
        EXPECT_TRUE(form().isVisible());
        EXPECT_EQ(Panel(), nullptr);
        EXPECT_TRUE(Part(button)->hasFocus());
      }
    }
    CloseForm();
  });
  EXPECT_EQ(outside_.opened.size(), 0U);
}

TEST_F(ExportWindowTest, TheBookIsWrittenFromTheMenuAndFromTheShelf) {
  MakeDatabase(
      "INSERT INTO BoxScores (Team, Runs, Host, GameID) VALUES ('Ants', 1, 'a_VIS', "
      "'111826104413'),"
      " ('Bees', 2, 'b_HOME', '111826104413')");
  const auto books = [this] {
    return QDir(folder_.filePath(QStringLiteral("Game Rpts"))).entryList({"All seasons*"});
  };
  const auto fromMenu = [this] {
    form1().findChild<QAction*>(QStringLiteral("mnuBook"))->trigger();
    QCoreApplication::processEvents();  // the menu has its answer first
  };
  SetMoment(0);
  WhenTrue(
      [this] {
        auto* bar = form1().findChild<ProgressPanel*>();
        return bar != nullptr && bar->isVisible();
      },
      [this] { Press(&form1(), Qt::Key_Escape); });
  fromMenu();
  EXPECT_EQ(books().size(), 0) << "cancelled";
  const auto messages = AnswerBoxes({Qt::Key_Y, Qt::Key_N});
  fromMenu();
  EXPECT_EQ(books().size(), 1);
  EXPECT_EQ(QFileInfo(Opened()).fileName(), QStringLiteral("index.html"));
  WhileWaiting([this] {
    auto* shelf = form1().findChild<QDialog*>(QStringLiteral("ShelfForm"));
    Click(shelf->findChild<QPushButton*>(QStringLiteral("cmd_Book")));
    Press(shelf, Qt::Key_Escape);
  });
  form1().findChild<QAction*>(QStringLiteral("mnuShelf"))->trigger();
  QCoreApplication::processEvents();
  EXPECT_EQ(books().size(), 2);
  EXPECT_TRUE(messages->value(1).startsWith(QStringLiteral("The book of all seasons is written")));
}

// The person clicks, types and closes as he likes; nothing of it arrives, at once or later.
TEST_F(ExportWindowTest, WindowBehindTakesNothingMeanwhile) {
  MakeDatabase("");
  Open([this] {
    WaitForFocus();
    const auto* tabs = Part<QTabWidget>("SSTab1");
    Part("Text9")->setFocus();
    bool tried = false;
    {
      SetMoment(std::numeric_limits<int>::max());
      ProgressPanel panel(QStringLiteral("Working"), ProgressPanel::Work::Cancellable, &form());
      EXPECT_TRUE(panel.Hear(0.1));
      EXPECT_FALSE(panel.isVisible()) << "a moment's work shows nothing";
      SetMoment(0);
      QTimer::singleShot(0, &panel, [&] {
        Click(Part("cmd_Purge"));
        Click(tabs->tabBar(), {}, Qt::LeftButton, tabs->tabBar()->tabRect(2).center());
        Press(&form(), Qt::Key_Tab);
        Type(&form(), "abc");
        Press(&form(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_FALSE(form().close());
        EXPECT_EQ(MessageBox::Open(), nullptr);
        tried = true;
      });
      EXPECT_TRUE(panel.Hear(0.5));
      EXPECT_TRUE(panel.isVisible());
      EXPECT_EQ(panel.findChild<QProgressBar*>()->value(), 500);
      EXPECT_TRUE(panel.Hear(0.6));
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(tried);
    EXPECT_EQ(tabs->currentIndex(), browser_tab::kLineScores);
    EXPECT_TRUE(form().isVisible());
    EXPECT_TRUE(Part("Text9")->hasFocus());
    Type(&form(), "12");
    EXPECT_EQ(Part<QLineEdit>("Text9")->text(), QStringLiteral("12"));
    CloseForm();
  });
}

}  // namespace
}  // namespace dtb
