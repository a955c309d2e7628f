#include <QAction>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

#include "database/saved_games.h"
#include "windows/browser_form_test.h"
#include "windows/season/groups_window.h"

namespace dtb {
namespace {

// Two games of two teams, two batters and a pitcher each.
constexpr const char* kSeason = R"(
  INSERT INTO BoxScores (Team, I1, Runs, Hits, Errors, Host, GameID) VALUES
    ('Ants', 1, 1, 4, 0, 'a_VIS', '041219600101'), ('Bees', 0, 0, 2, 1, 'b_HOME', '041219600101'),
    ('Bees', 2, 2, 5, 0, 'a_VIS', '041319600101'), ('Ants', 3, 3, 7, 2, 'b_HOME', '041319600101');
  INSERT INTO Batting (Batter, [1B], AB, Team, GameID) VALUES
    ('Abel', 1, 4, 'Ants', '041219600101'), ('Adam', 9, 10, 'Ants', '041219600101'),
    ('Bill', NULL, 4, 'Bees', '041219600101'), ('O''Neill', 2, 4, 'Bees', '041319600101');
  INSERT INTO Pitching (Pitcher, k, IP, Team, GameID) VALUES
    ('Ace', 7, 9, 'Ants', '041219600101'), ('Bob', 2, 6.33, 'Bees', '041219600101');
  INSERT INTO WinLoss VALUES ('Ants', 1, NULL), ('Bees', NULL, 1);
  INSERT INTO Matchups VALUES ('Ants at Bees', 1);)";

class BrowserWindowTest : public BrowserFormTest {
 protected:
  void MakeDatabase() { BrowserFormTest::MakeDatabase(kSeason); }

  void GoTo(int tab) {
    Part<QTabWidget>("SSTab1")->setCurrentIndex(tab);
    QCoreApplication::processEvents();
  }

  QString Cell(const char* grid, int row, int column) {
    const auto* model = Part<StatGridView>(grid)->model();
    return model->index(row - 1, column).data().toString();
  }

  void ClickCell(const char* grid, int row, int column) {
    auto* view = Part<StatGridView>(grid);
    Click(view->viewport(), {}, Qt::LeftButton, view->CellRect(row, column).center());
  }

  void DoubleClickCell(const char* grid, int column, Qt::KeyboardModifiers modifiers) {
    auto* view = Part<StatGridView>(grid);
    const QPoint place = view->viewport()->mapTo(&form(), view->CellRect(1, column).center());
    QTest::mouseDClick(form().windowHandle(), Qt::LeftButton, modifiers, place);
  }

  // No text of the table is wider than its column.
  void ExpectColumnsWideEnough(const StatGridView& grid) {
    const auto* model = grid.model();
    for (int column = 0; column < model->columnCount(); ++column) {
      if (grid.isColumnHidden(column)) continue;
      constexpr int kMargins = 6;
      const QString header = model->headerData(column, Qt::Horizontal).toString();
      EXPECT_LE(grid.horizontalHeader()->fontMetrics().horizontalAdvance(header) + kMargins,
                grid.columnWidth(column))
          << FromQt(grid.objectName() + QChar(' ') + header);
      for (int row = 0; row < model->rowCount(); ++row) {
        const QString text = model->index(row, column).data().toString();
        EXPECT_LE(grid.fontMetrics().horizontalAdvance(text) + kMargins, grid.columnWidth(column))
            << FromQt(grid.objectName() + QChar(' ') + text);
      }
    }
  }
};

TEST_F(BrowserWindowTest, SurnamesAndAccentsAreFoundAndAnEmptySearchShowsTheWayBack) {
  BrowserFormTest::MakeDatabase(std::string(kSeason) + R"(
    INSERT INTO Batting (Batter, AB, Team, GameID) VALUES
      ('Ana Quiñonero', 4, 'Ants', '041219600101'), ('Quincy Abel', 3, 'Bees', '041219600101');
    INSERT INTO Pitching (Pitcher, IP, Team, GameID) VALUES ('Ló Acevedo', 1, 'Ants', '041219600101');)");
  struct Search {
    int tab;
    const char* box;
    const char* button;
    const char* grid;
    const char* text;
    QStringList found;
  };
  const std::vector<Search> searches{
      {1, "Text1", "Command5", "MSHFlexGrid2", "quinon", {"Ana Quiñonero"}},
      {1, "Text1", "Command5", "MSHFlexGrid2", "quiñ", {"Ana Quiñonero"}},
      {1, "Text1", "Command5", "MSHFlexGrid2", "abe", {"Abel", "Quincy Abel"}},
      {1, "Text1", "Command5", "MSHFlexGrid2", "bel", {}},
      {1, "Text2", "Command3", "MSHFlexGrid2", "be", {"Bill", "Quincy Abel", "O'Neill"}},
      {2, "Text3", "Command2", "MSHFlexGrid3", "lo ac", {"Ló Acevedo"}},
      {2, "Text3", "Command2", "MSHFlexGrid3", "%x", {}},
      {3, "Text6", "Command7", "MSHFlexGrid4", "QUIN", {"Ana Quiñonero", "Quincy Abel"}},
      {4, "Text10", "Command13", "MSHFlexGrid5", "aceve", {"Ló Acevedo"}},
      {4, "Text10", "Command13", "MSHFlexGrid5", "ácé", {}},
      {0, "Text9", "Command11", "MSHFlexGrid1", "1960013", {}}};
  Open([&] {
    for (const Search& search : searches) {
      GoTo(search.tab);
      auto* grid = Part<StatGridView>(search.grid);
      auto* none = grid->findChild<QWidget*>("NoMatch");
      auto* box = Part<QLineEdit>(search.box);
      Click(box);
      box->selectAll();
      QInputMethodEvent typed;  // has letters that no key of a plain keyboard has
      typed.setCommitString(QString::fromUtf8(search.text));
      QCoreApplication::sendEvent(box, &typed);
      Press(&form(), Qt::Key_Return);
      QStringList found;
      for (int row = 1; row <= grid->model()->rowCount(); ++row) {
        found.append(Cell(search.grid, row, 1));
      }
      EXPECT_EQ(found.join('|'), search.found.join('|')) << search.text;
      EXPECT_EQ(none->isVisible(), search.found.isEmpty()) << search.text;
      if (!none->isVisible()) continue;
      EXPECT_TRUE(none->accessibleName().contains(QString::fromUtf8(search.text)));
      Click(none->findChild<QWidget*>("cmd_ShowAll"));
      EXPECT_GT(grid->model()->rowCount(), 2) << search.text;
      EXPECT_FALSE(none->isVisible()) << search.text;
      EXPECT_EQ(box->text(), "") << search.text;
    }
    CloseForm();
  });
}

// Esc empties a search box, then leaves it, and only then closes the browser; and a press of Ctrl
// that is over sorts nothing.
TEST_F(BrowserWindowTest, EscapeEmptiesAndLeavesTextFields) {
  MakeDatabase();
  Open([this] {
    int boxes = 0;
    for (int tab = 0; tab < Part<QTabWidget>("SSTab1")->count(); ++tab) {
      GoTo(tab);
      for (auto* box : form().findChildren<QLineEdit*>()) {
        if (!box->isVisible()) continue;
        ++boxes;
        box->setFocus(Qt::TabFocusReason);
        Type(&form(), "11");
        Press(&form(), Qt::Key_Escape);
        EXPECT_EQ(box->text(), QString()) << FromQt(box->objectName());
        EXPECT_TRUE(box->hasFocus()) << FromQt(box->objectName());
        Press(&form(), Qt::Key_Escape);
        EXPECT_FALSE(box->hasFocus()) << FromQt(box->objectName());
        ASSERT_TRUE(form().isVisible()) << FromQt(box->objectName());
      }
    }
    EXPECT_EQ(boxes, 1 + 3 + 3 + 2 + 2 + 1);
    GoTo(browser_tab::kAggregateBatting);
    const QString first = Cell("MSHFlexGrid4", 1, 1);
    Part("Text6")->setFocus();
    Press(&form(), Qt::Key_A, Qt::ControlModifier);
    constexpr int kHits = 5;
    DoubleClickCell("MSHFlexGrid4", kHits - 1, {});
    EXPECT_EQ(Cell("MSHFlexGrid4", 1, 1), first);
    Part<QTabWidget>("SSTab1")->setFocus();
    CloseForm();
  });
}

TEST_F(BrowserWindowTest, BoxScoreHasItsTeamsOverColumnsOfOneWidth) {
  MakeDatabase();
  Open([this] {
    ClickCell("MSHFlexGrid1", 3, line_score_column::kGameID);  // the older game
    EXPECT_EQ(Part<QLabel>("lbl_HomeGame")->text(), QStringLiteral("Bees"));
    EXPECT_FALSE(Part("lbl_NoGame")->isVisible());
    for (int column = 0; column < 10; ++column) {
      EXPECT_EQ(Part<StatGridView>("MSHFlexGrid6")->columnWidth(column),
                Part<StatGridView>("MSHFlexGrid8")->columnWidth(column));
    }
    CloseForm();
  });
}

TEST_F(BrowserWindowTest, EveryTabIsWholeOnSmallScreens) {
  MakeDatabase();
  Open([this] {
    ClickCell("MSHFlexGrid1", 1, line_score_column::kGameID);
    for (const QSize& size : {QSize(1326, 728), QSize(1240, 680), QSize(1880, 1040)}) {
      form().resize(size);
      for (int tab = 0; tab < Part<QTabWidget>("SSTab1")->count(); ++tab) {
        GoTo(tab);
        for (const auto* widget : form().findChildren<QWidget*>()) {
          if (!widget->isVisible() || widget->objectName().startsWith(QStringLiteral("qt_")))
            continue;
          const auto* button = qobject_cast<const QAbstractButton*>(widget);
          const auto* label = qobject_cast<const QLabel*>(widget);
          const QString text = button != nullptr  ? button->text()
                               : label != nullptr ? label->text()
                                                  : QString();
          EXPECT_LE(widget->fontMetrics().horizontalAdvance(text), widget->width())
              << FromQt(text) << " at " << size.width();
          EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()) ||
                      widget->objectName().isEmpty())
              << FromQt(widget->objectName()) << " at " << size.width();
        }
      }
      for (const auto* grid : form().findChildren<StatGridView*>()) ExpectColumnsWideEnough(*grid);
      const auto* tabs = Part<QTabWidget>("SSTab1")->tabBar();
      EXPECT_GE(tabs->width(), tabs->sizeHint().width()) << size.width();
    }
    CloseForm();
  });
}

TEST_F(BrowserWindowTest, EveryControlIsReachedByKeyboard) {
  MakeDatabase();
  Open([this] {
    ClickCell("MSHFlexGrid1", 1, line_score_column::kGameID);
    for (int tab = 0; tab < Part<QTabWidget>("SSTab1")->count(); ++tab) {
      GoTo(tab);
      std::set<const QWidget*> reached;
      for (int step = 0; step < 45; ++step) {
        Press(&form(), Qt::Key_Tab);
        reached.insert(QApplication::focusWidget());
      }
      for (const auto* widget : form().findChildren<QWidget*>()) {
        const bool control = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabled();
        if (!control || !widget->isVisible() || widget->focusProxy() != nullptr) continue;
        EXPECT_TRUE(reached.contains(widget)) << FromQt(widget->objectName());
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << FromQt(widget->objectName());
      }
    }
    CloseForm();
  });
}

TEST_F(BrowserWindowTest, SeasonIsShownInPicturesAndWords) {
  MakeDatabase();
  Open([this] {
    GoTo(browser_tab::kSeason);
    auto* courses = Part<SeasonCourseChart>("pic_Standings");
    EXPECT_EQ(Cell("grd_Standings", 1, 1), QStringLiteral("Ants"));
    EXPECT_TRUE(courses->accessibleDescription().contains(QStringLiteral("Bees: 0-2, 2 below")));
    ClickCell("grd_Standings", 2, 1);
    EXPECT_EQ(courses->marks(), 2) << "those of the chosen team";
    courses->setFocus();
    Press(&form(), Qt::Key_End);
    EXPECT_TRUE(
        courses->accessibleDescription().startsWith(QStringLiteral("no date\nBees 2, Ants 3")));
    Click(Part("cmd_Leaders"));
    auto* board = Part<SeasonLeaderBoard>("pic_Leaders0");
    EXPECT_EQ(board->WordsOf(0), QStringLiteral("Adam, Ants: .900"));
    Click(board, {}, Qt::LeftButton, board->PlaceOf(0).toPoint());
    EXPECT_EQ(Part<QLabel>("lbl_Chosen")->text(), QStringLiteral("Adam, Ants"));
    auto* games = Part<SeasonGamesChart>("pic_Games");
    while (!form().Settled()) QCoreApplication::processEvents();
    EXPECT_EQ(Cell("grd_Months", 2, 3), QStringLiteral("10")) << "at-bats in all months";
    // Whatever the list of line scores shows.
    Part<QLineEdit>("Text9")->setText(QStringLiteral("none"));
    Part<QPushButton>("Command11")->click();
    Click(games, {}, Qt::LeftButton, games->PlaceOf(0).toPoint());
    EXPECT_EQ(Part<QTabWidget>("SSTab1")->currentIndex(), browser_tab::kGameStats);
    EXPECT_EQ(Cell("MSHFlexGrid6", 2, 1), QStringLiteral("Adam"));
    CloseForm();
  });
}

TEST_F(BrowserWindowTest, GroupsOfTeamsHaveStandingsOfTheirOwn) {
  MakeDatabase();
  Open([this] {
    GoTo(browser_tab::kSeason);
    WhileWaiting([this] {
      auto* window = form().findChild<GroupsWindow*>();
      auto* tree = window->findChild<QTreeWidget*>();
      const auto press = [&](const char* button) {
        Click(window->findChild<QWidget*>(QLatin1String(button)));
      };
      // The chosen team goes into the new group, whose name is being typed.
      tree->setCurrentItem(tree->topLevelItem(0)->child(0));
      press("cmd_NewGroup");
      Type(QApplication::focusWidget(), "East");
      Press(QApplication::focusWidget(), Qt::Key_Return);
      press("cmd_NewGroup");
      Type(QApplication::focusWidget(), "East");
      Press(QApplication::focusWidget(), Qt::Key_Return);
      tree->setCurrentItem(tree->topLevelItem(2)->child(0));
      Press(tree, Qt::Key_Up, Qt::AltModifier);
      EXPECT_EQ(tree->topLevelItem(1)->child(0)->text(0), QStringLiteral("Bees"));
      const auto told = AnswerBoxes({Qt::Key_Return});
      press("cmd_GroupsDone");
      EXPECT_EQ(*told, QStringList{QStringLiteral("Two groups are called \"East\".")});
      tree->topLevelItem(1)->setText(0, QStringLiteral("West "));
      press("cmd_GroupsDone");
    });
    Click(Part("cmd_Groups"));
    auto* courses = Part<SeasonCourseChart>("pic_Standings");
    for (const auto& [row, text] : {std::pair{1, "East"}, {2, "Ants"}, {3, "West"}, {4, "Bees"}}) {
      EXPECT_EQ(Cell("grd_Standings", row, 1), QLatin1String(text));
    }
    EXPECT_EQ(Cell("grd_Standings", 4, 6), QStringLiteral("-")) << "first of its group";
    EXPECT_EQ(courses->marks(), 4);
    ClickCell("grd_Standings", 3, 1);
    EXPECT_EQ(courses->marks(), 2) << "those of the group";
    ClickCell("grd_Standings", 3, 1);
    EXPECT_EQ(courses->marks(), 4) << "a second click takes it back";
    CloseForm();
  });
}

}  // namespace
}  // namespace dtb
