// "Real and replayed" in the tab "Season", with real clicks.
#include "windows/season/real_view.h"

#include "base/settings_keys.h"
#include "database/season_shelf.h"
#include "platform/quiet_desktop.h"
#include "replay/play_table.h"
#include "teams/team_load.h"
#include "windows/board/archive_ahead.h"
#include "windows/browser_form_test.h"

namespace dtb {
namespace {

// One game of the part, Anaheim 3, Oakland 7 on the first day, replayed the other way round, in
// which a player with 12 real at-bats has 20.
constexpr const char* kGame =
    "INSERT INTO BoxScores (Team, Runs, Hits, Errors, Host, GameID) VALUES"
    " ('Anaheim 2020', 7, 9, 0, 'a_VIS', '112626120002'),"
    " ('Oakland 2020', 3, 5, 1, 'b_HOME', '112626120002');"
    "INSERT INTO Batting (Batter, AB, HR, Team, GameID) VALUES"
    " ('Matt Olson', 4, 2, 'Oakland 2020', '112626120002'),"
    " ('Franklin Barreto', 20, 0, 'Oakland 2020', '112626120002');"
    "CREATE TABLE Games (GameID TEXT, OwnID TEXT, GameDate TEXT, ArchiveGame TEXT, Park TEXT,"
    " VisitorsLineup TEXT, HomeLineup TEXT);"
    "INSERT INTO Games (GameID, GameDate, ArchiveGame) VALUES"
    " ('112626120002', '2020-07-24', 'OAK202007240');";

class RealViewTest : public BrowserFormTest {
 protected:
  RealViewTest() { setup_.dialogs = &dialogs_; }
  void Tie(const char* archive) {
    KeepForSeason(board().platform, settings::kSeasonArchive, archive);
  }
  void GoToSeason() {
    auto* tabs = Part<QTabWidget>("SSTab1");
    tabs->setCurrentIndex(browser_tab::kSeason);
    while (!form().Settled()) QCoreApplication::processEvents();
  }
  void ClickAndWait(const char* name) {
    Click(Part(name));
    do {
      QCoreApplication::processEvents();
    } while (!form().Settled());
  }
  QString Cell(const char* grid, int row, int column) {
    return Part<QTableView>(grid)->model()->index(row - 1, column).data().toString();
  }

  replay::ScriptedDialogs dialogs_;
};

TEST_F(RealViewTest, NeedsAnArchive) {
  MakeDatabase(kGame);
  Open([this] {
    GoToSeason();
    EXPECT_FALSE(Part("cmd_Real")->isVisible());
    CloseForm();
  });
}

TEST_F(RealViewTest, AnArchiveThatIsGoneIsChosenAgain) {
  MakeDatabase(kGame);
  Tie("/nowhere/2020-part.zip");
  Open([this] {
    GoToSeason();
    ClickAndWait("cmd_Real");
    const QString why = Part<QLabel>("lbl_NoArchive")->text();
    EXPECT_TRUE(why.contains(QStringLiteral("/nowhere/2020-part.zip"))) << why.toStdString();
    EXPECT_TRUE(Part("cmd_RealZip")->isVisible());
    dialogs_.answers.append(std::filesystem::path(kArchive));
    ClickAndWait("cmd_RealZip");
    EXPECT_EQ(Cell("grd_BothStandings", 1, 1), QStringLiteral("Anaheim 2020"));
    EXPECT_EQ(Cell("grd_BothStandings", 1, 2) + Cell("grd_BothStandings", 1, 5),
              QStringLiteral("1-00-1"));
    CloseForm();
  });
  EXPECT_NE(SettingOfSeason(board().platform, settings::kSeasonArchive), "/nowhere/2020-part.zip");
}

TEST_F(RealViewTest, ShowsGamesLeadersAndUse) {
  MakeDatabase(kGame);
  Tie(kArchive);
  Open([this] {
    GoToSeason();
    ClickAndWait("cmd_Real");
    auto* standings = Part<QTableView>("grd_BothStandings");
    Click(standings->viewport(), {}, Qt::LeftButton,
          standings->visualRect(standings->model()->index(1, 1)).center());
    Click(Part("cmd_RealGames"));
    EXPECT_EQ(Part<QLabel>("lbl_RealTeam")->text(),
              QStringLiteral("Oakland 2020, 1 of 30: 0-1, really 1-0"));
    EXPECT_EQ(Cell("grd_RealGames", 1, 4) + Cell("grd_RealGames", 1, 5),
              QStringLiteral("L 3-7W 7-3"));
    Click(Part("cmd_RealLeaders"));
    auto* homeRuns = Part<RealLeadersChart>("pic_RealLeaders1");
    EXPECT_TRUE(homeRuns->WordsOf(0).startsWith(
        QStringLiteral("Matt Olson, Oakland 2020\nReplayed: 2\nReally: ")));
    Click(Part("cmd_RealUse"));
    EXPECT_EQ(Cell("grd_UseBatters", 1, 1), QStringLiteral("Franklin Barreto"));
    EXPECT_EQ(Cell("grd_UseBatters", 1, 3), QStringLiteral("over"));
    Click(Part("cmd_SameDate"));
    EXPECT_TRUE(
        Part<QLabel>("lbl_RealNote")->text().startsWith(QStringLiteral("Both up to 24 Jul 2020.")));
    CloseForm();
  });
}

// Nobody has opened a window that reads the archive.
TEST_F(RealViewTest, TheLineUpsKnowTheUseByThemselves) {
  MakeDatabase(kGame);
  Tie(kArchive);
  const QString file = folder_.filePath(QStringLiteral("Oakland 2020.txt"));
  WriteFile(file, "Matt Olson=1B\nFranklin Barreto (2)=2B\n");
  OpenTeam(board(), Side::Visitors, FromQt(file));
  auto* list = Find<QListView>("List1");
  for (const auto& [row, tip] : {std::pair{1, "Real use: 20 of "}, {0, "Matt Olson=1B"}}) {
    const QPoint place = list->visualRect(list->model()->index(row, 0)).center();
    while (!list->toolTip().contains(QLatin1String(tip))) {
      QTest::mouseMove(form1().windowHandle(), list->viewport()->mapTo(&form1(), place));
      QTest::mouseMove(form1().windowHandle(),
                       list->viewport()->mapTo(&form1(), place) + QPoint(1, 0));
      QCoreApplication::processEvents();
    }
    EXPECT_EQ(list->toolTip().contains(QStringLiteral("Real use")), row == 1);
  }
}

// Beside the file of a club, before it is loaded.
TEST_F(RealViewTest, TheArchivesWindowMarksTheUse) {
  MakeDatabase(kGame);
  Tie(kArchive);
  const auto grid = [](const char* name) {
    const QWidget* window = QApplication::activeModalWidget();
    return window == nullptr ? nullptr : window->findChild<QTableView*>(QLatin1String(name));
  };
  WhenTrue([grid] { return grid("grd_Teams") && grid("grd_Teams")->model()->rowCount() > 1; },
           [this, grid] {
             const auto texts = [&](const char* name, int column) {
               QStringList all;
               const auto* model = grid(name)->model();
               for (int row = 0; row < model->rowCount(); ++row) {
                 all.append(model->index(row, column).data().toString());
               }
               return all;
             };
             const int club = int(texts("grd_Teams", 1).indexOf(QStringLiteral("Oakland 2020")));
             grid("grd_Teams")->setCurrentIndex(grid("grd_Teams")->model()->index(club, 1));
             const QStringList players = texts("grd_File1", 2);
             const QStringList marks = texts("grd_File1", 3);
             EXPECT_EQ(marks.count(QString()), marks.size() - 1);
             EXPECT_TRUE(players.value(marks.indexOf(QStringLiteral("over")))
                             .startsWith(QStringLiteral("Franklin Barreto=")));
             Press(QApplication::activeModalWidget(), Qt::Key_Escape);
           });
  Find<QAction>("mnuSeason")->trigger();
  QCoreApplication::processEvents();  // the menu has its answer first
}

// An archive that cannot be read; or one that takes for ever to read.
struct TiedDesktop : QuietDesktop {
  explicit TiedDesktop(bool isBroken) : broken(isBroken) {}
  std::string Read(const std::string& /*section*/, const std::string& key,
                   const std::string& missing) override {
    return key == settings::kSeasonArchive ? "season.zip" : missing;
  }
  std::unique_ptr<Archive> OpenArchive(const std::filesystem::path& /*zipOrFolder*/,
                                       const GoOn& goOn) override {
    begun = true;
    if (broken) throw ProgramError(error_number::kInvalidFileFormat, "broken");
    while (goOn(0)) std::this_thread::yield();
    ended = true;
    return nullptr;
  }
  void Show(const std::string& message, BoxIcon /*icon*/, const std::string& /*title*/) override {
    ADD_FAILURE() << message;
  }

  bool broken;
  std::atomic<bool> begun = false;
  std::atomic<bool> ended = false;
};

TEST_F(RealViewTest, AnArchiveReadAheadHoldsNothingUpAndTellsNoFault) {
  for (const bool broken : {true, false}) {
    TiedDesktop desktop(broken);
    const Platform ports = PlatformOf(desktop, desktop, desktop);
    archive::KeptSeason kept;
    {
      ArchiveAhead ahead(ports, kept);
      ahead.Begin();
      while (!desktop.begun) QCoreApplication::processEvents();
    }
    EXPECT_EQ(desktop.ended, !broken);
    EXPECT_EQ(kept.season, nullptr);
  }
}

}  // namespace
}  // namespace dtb
