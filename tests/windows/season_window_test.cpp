// The window "From a season...", with real clicks and keys.
#include <QAction>
#include <QClipboard>
#include <QLineEdit>

#include "replay/play_table.h"
#include "windows/archive/archive_window.h"
#include "windows/boxes/busy.h"
#include "windows/browser_form_test.h"
#include "windows/season/day_window.h"

namespace dtb {
namespace {

class SeasonWindowTest : public BrowserFormTest {
 protected:
  SeasonWindowTest() { setup_.dialogs = &dialogs_; }
  void TearDown() override {
    ProgressPanel::moment = usualMoment_;
    WindowTest::TearDown();
  }

  // Opens the window from the menu, acts in it, and closes it unless that was done.
  void InWindow(const std::function<void()>& action) {
    WhileWaiting([this, action] {
      action();
      if (Form() != nullptr && Form()->isVisible()) Press(Form(), Qt::Key_Escape);
    });
    Find<QAction>("mnuSeason")->trigger();
    QCoreApplication::processEvents();  // the menu has its answer first
  }
  ArchiveWindow* Form() { return form1().findChild<ArchiveWindow*>(); }
  template <class T = QWidget>
  T* Part(const char* name) {
    return Form()->findChild<T*>(QLatin1String(name));
  }
  void Choose(const std::string& archive) {
    dialogs_.answers.append(std::filesystem::path(archive));
    Click(Part("cmd_Zip"));
  }
  void ClickRow(const char* grid, int row) {
    auto* table = Part<QTableView>(grid);
    Click(table->viewport(), {}, Qt::LeftButton,
          table->visualRect(table->model()->index(row - 1, 1)).center());
  }
  QString Cell(const char* grid, int row, int column) {
    return Part<QTableView>(grid)->model()->index(row - 1, column).data().toString();
  }
  QString Line(const char* grid, int row) { return Cell(grid, row, 2); }
  QString Told(const char* name) { return Part<QLabel>(name)->text(); }
  QByteArray Written() {
    QFile file(folder_.filePath(QStringLiteral("Teams/Oakland 2020.txt")));
    return file.open(QIODevice::ReadOnly) ? file.readLine() : QByteArray();
  }

  replay::ScriptedDialogs dialogs_;
  const int usualMoment_ = ProgressPanel::moment;
};

TEST_F(SeasonWindowTest, ATeamIsSeenWrittenAndLoadedForBothSides) {
  InWindow([this] {
    Choose(kArchive);
    EXPECT_FALSE(Part("cmd_Write")->isEnabled());
    ClickRow("grd_Teams", 20);
    EXPECT_EQ(Line("grd_File1", 1), "Marcus Semien=SS R .188 2 HR");
    Click(Part("tb_Batters"));
    Press(Form(), Qt::Key_A, Qt::ControlModifier);
    Type(Form(), "{hr} HR {x}");
    EXPECT_EQ(Line("grd_File1", 1), "Marcus Semien=2 HR {x}");
    EXPECT_EQ(Told("lbl_Forms"), "Not known for batters: {x}");
    for (int i = 0; i < 4; ++i) Press(Form(), Qt::Key_Backspace);

    QDir(folder_.path()).mkdir(QStringLiteral("Teams"));
    WriteFile(folder_.filePath(QStringLiteral("Teams/Oakland 2020.txt")), "mine\n");
    const auto messages = AnswerBoxes({Qt::Key_N, Qt::Key_Y});
    Click(Part("cmd_Write"));
    EXPECT_EQ(Written(), "mine\n");
    Click(Part("cmd_Write"));
    EXPECT_EQ(Written(), "Marcus Semien=2 HR\n");
    EXPECT_EQ(messages->size(), 2);
    Click(Part("cmd_LoadVisitors"));
    ClickRow("grd_Teams", 13);
    Click(Part("cmd_LoadHome"));
  });
  EXPECT_EQ(board().state.tb_VisTeam.value(), "Oakland 2020");
  EXPECT_EQ(board().state.tb_HomeTeam.value(), "Houston 2020");
}

TEST_F(SeasonWindowTest, CancelLeavesTheSeasonTheChoiceAndTheNextRunAsTheyWere) {
  InWindow([this] {
    Choose(kArchive);
    ClickRow("grd_Teams", 20);
    ClickRow("grd_Games", 10);
    const QString line = Line("grd_File2", 1);
    const std::string other = FromQt(folder_.filePath(QStringLiteral("other.zip")));
    std::filesystem::copy_file(kArchive, other);
    ProgressPanel::moment = 0;  // shows at once
    WhenTrue(
        [this] {
          auto* panel = Form()->findChild<ProgressPanel*>();
          return panel != nullptr && panel->isVisible();
        },
        [this] { Click(Part("cmd_Cancel")); });
    Choose(other);
    EXPECT_TRUE(Told("lbl_Archive").startsWith("2020-part.zip")) << FromQt(Told("lbl_Archive"));
    EXPECT_EQ(Line("grd_File2", 1), line);
    Click(Part("cmd_LoadGame"));
  });
  EXPECT_EQ(board().state.tb_VisTeam.value(), "Houston 2020");
  InWindow([this] {
    EXPECT_TRUE(Told("lbl_File2").endsWith("on 2020-08-07")) << "the choice is found again";
  });
}

TEST_F(SeasonWindowTest, TheChosenGameIsInSightAndTheListsStayWhereTheyAre) {
  QEventLoop waits;
  InWindow([this] {
    Choose(kArchive);
    ClickRow("grd_Teams", 20);
    const QRect lists = Part("grd_Games")->geometry();
    ClickRow("grd_Games", 1);
    EXPECT_EQ(Part("grd_Games")->geometry(), lists) << "with two files beside it";
    Press(Form(), Qt::Key_End, Qt::ControlModifier);
    Click(Part("cmd_LoadGame"));
  });
  InWindow([&] {
    WhenTrue([this] { return Form()->isVisible(); }, [&] { waits.quit(); });
    waits.exec();  // the window is known before it is there
    const auto* games = Part<QTableView>("grd_Games");
    EXPECT_EQ(games->currentIndex().row(), games->model()->rowCount() - 1);
    const QRect row = games->visualRect(games->currentIndex());
    EXPECT_TRUE(games->viewport()->rect().contains(row))
        << row.top() << " to " << row.bottom() << " of " << games->viewport()->height();
  });
}

TEST_F(SeasonWindowTest, ADayIsGoneThroughAndOneOfItsGamesPlayed) {
  MakeDatabase("");
  const auto openDay = [this] {
    form1().findChild<QAction*>(QStringLiteral("mnuDay"))->trigger();
    QCoreApplication::processEvents();
  };
  const auto told = AnswerBoxes({Qt::Key_N});
  openDay();
  EXPECT_TRUE(told->join(QString()).contains(QStringLiteral("not tied to an archive")));
  InWindow([this] { Choose(kArchive); });
  WhileWaiting([this] {
    auto* window = form1().findChild<DayWindow*>();
    auto* games = window->findChild<StatGridView*>(QStringLiteral("grd_Day"));
    const auto title = [window] {
      return window->findChild<QLabel*>(QStringLiteral("lbl_Day"))->text();
    };
    EXPECT_EQ(title(), QStringLiteral("24 Jul 2020: 2 games, none played"));
    Click(window->findChild<QWidget*>(QStringLiteral("cmd_DayAfter")));
    EXPECT_EQ(title(), QStringLiteral("25 Jul 2020: 2 games, none played"));
    Click(window->findChild<QWidget*>(QStringLiteral("cmd_CopyDay")));
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(QStringLiteral("25 Jul 2020\n")));
    Click(games->viewport(), {}, Qt::LeftButton,
          games->CellRect(2, real::kPlayColumn + 1).center());
  });
  openDay();
  EXPECT_EQ(board().state.tb_VisTeam.value(), "Pittsburgh 2020");
  EXPECT_EQ(board().state.tb_HomeTeam.value(), "St. Louis 2020");
}

}  // namespace
}  // namespace dtb
