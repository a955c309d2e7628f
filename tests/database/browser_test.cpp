#include <algorithm>

#include "browser/box_score.h"
#include "browser/chosen_game.h"
#include "browser/grid_format.h"
#include "browser/queries.h"
#include "database/deletes.h"
#include "database_test.h"

namespace dtb {
namespace {

// Games of teams of whom one has the other's name inside its own, the younger ones with lower
// GameIDs, the home team's lines before the visitors'. A row is known by its last counter but
// innings: at-bats, or the strikeouts of a pitcher.
constexpr const char* kSeason = R"(
  INSERT INTO Batting (Batter, k, BB, [1B], [2B], [3B], HR, SB, RBI, AB, Team, GameID) VALUES
    ('al', 1, NULL, 1, NULL, NULL, NULL, NULL, NULL, 1, 'O''Neill''s Nine', '111826100101'),
    ('Al', NULL, 3, NULL, 1, NULL, NULL, NULL, 1, 2, 'O''Neill''s Nine', '111826100101'),
    ('Ángel Soto', 1, 2, 3, 1, NULL, 1, NULL, 2, 11, 'Ants', '111826100101'),
    ('O''Neill', NULL, NULL, 2, NULL, 1, NULL, 1, 1, 12, 'Ants', '111826100101'),
    ('O''Neill', 2, 1, 1, 1, NULL, 1, 1, 3, 16, 'Ants', '111826100102'),
    ('Bo Z', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 17, 'Ants', '111826100102'),
    ('Ángel Soto', 3, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 15, 'Ants of 1961', '111826100102'),
    ('Al', NULL, NULL, 1, NULL, NULL, NULL, NULL, NULL, 19, 'Ants', '011826100103'),
    ('Cy', NULL, NULL, 4, NULL, NULL, NULL, NULL, NULL, 4, 'Élan_%', '011826100103'),
    ('Dee', NULL, NULL, NULL, NULL, NULL, 5, NULL, 9, 5, 'ants', '011826100104');
  INSERT INTO Pitching (Pitcher, k, BB, Hits, HR, Runs, IP, Team, GameID) VALUES
    ('Pat', 1, 2, 3, NULL, NULL, 5.33, 'O''Neill''s Nine', '111826100101'),
    ('Quinn', 2, NULL, NULL, 1, 1, 3.67, 'O''Neill''s Nine', '111826100101'),
    ('Pat', 3, 1, 4, 1, 2, 9, 'Ants', '111826100101'),
    ('Pat', 4, 1, 5, NULL, 7, 2.67, 'Ants', '111826100102'),
    ('Quinn', 5, NULL, 2, 1, 3, 7.5, 'Élan_%', '011826100103');
  INSERT INTO BoxScores (Team, I1, I20, Runs, Hits, Errors, Host, GameID) VALUES
    ('O''Neill''s Nine', 4, NULL, 4, 7, 1, 'b_HOME', '111826100101'),
    ('Ants', 0, NULL, 0, 3, 2, 'a_VIS', '111826100101'),
    ('Ants', 1, 'x', 1, 9, 0, 'b_HOME', '111826100102'),
    ('Ants of 1961', 0, 5, 5, 8, 0, 'a_VIS', '111826100102'),
    ('Ants', 2, NULL, 2, 6, 0, 'b_HOME', '011826100103'),
    ('Élan_%', 2, NULL, 2, 4, 0, 'a_VIS', '011826100103'),
    ('Bees', 3, NULL, 3, 3, 3, 'b_HOME', '011826100104'),
    ('ants', 1, NULL, 1, 1, 1, 'a_VIS', '011826100104');
  INSERT INTO WinLoss (Team, Win, Loss) VALUES ('O''Neill''s Nine', 1, NULL), ('Ants', NULL, 1),
    ('Ants', NULL, 1), ('Ants of 1961', 1, NULL), ('Bees', 1, NULL), ('ants', NULL, 1),
    ('Ants of 1961', 1, NULL);
  INSERT INTO Matchups (Matchup, Tally) VALUES ('Ants  vs  O''Neill''s Nine', 1),
    ('Élan_%  vs  Ants', 1), ('Ants  vs  O''Neill''s Nine', 1), ('ants  vs  Bees', 1);
)";

class BrowserTest : public DatabaseTest {
 protected:
  BrowserTest() { Execute(kSeason); }

  const StatGrid& Run(Query query, const std::string& box = {}) {
    const QueryButton& button = QueryButtons()[static_cast<std::size_t>(query)];
    EXPECT_EQ(button.query, query);
    if (button.box != nullptr) (state.*button.box).Set(box);
    RunQuery(browser, query);
    EXPECT_EQ(desk.told, Strings{});
    return (state.*button.grid).grid;
  }
  // A column of the rows that a query finds, in their order.
  static std::string Column(const StatGrid& grid, int column) {
    std::string texts;
    for (const std::string& text : ColumnOf(grid, column)) texts += text + ' ';
    return texts;
  }

  BrowserState state;
  Browser browser{state, ports};
};

constexpr int kStrikeoutsColumn = 2;
constexpr int kAtBatsColumn = 10;

TEST_F(BrowserTest, QueriesByGame) {
  struct Case {
    Query query;
    const char* box;
    int known;  // the column by which rows are known
    const char* rows;
  };
  for (const Case& one :
       std::vector<Case>{{Query::Command5, "", kAtBatsColumn, "16 17 15 1 2 11 12 5 19 4 "},
                         {Query::Command5, "ÁNG", kAtBatsColumn, "15 11 "},
                         {Query::Command5, "o'n", kAtBatsColumn, "16 12 "},
                         {Query::Command5, "_l", kAtBatsColumn, "1 2 19 "},
                         {Query::Command5, "x' OR 'a'='a", kAtBatsColumn, ""},
                         {Query::Command3, "aNts", kAtBatsColumn, "19 5 11 12 16 17 15 "},
                         {Query::Command9, "826100102", kAtBatsColumn, "16 17 15 "},
                         {Query::Command2, "%u", kStrikeoutsColumn, "2 5 "},
                         {Query::Command1, "O'", kStrikeoutsColumn, "1 2 "},
                         {Query::Command1, "ants", kStrikeoutsColumn, "3 4 "},
                         {Query::Command10, "111826100101", kStrikeoutsColumn, "1 2 3 "}}) {
    EXPECT_EQ(Column(Run(one.query, one.box), one.known), one.rows) << one.box;
  }
  EXPECT_EQ(RowsOf(Run(Query::Command5, "Ángel Soto")).at(1),
            "Ángel Soto|1|2|3|1||1||2|11|Ants|111826100101");
  EXPECT_EQ(RowsOf(Run(Query::Command2, "Pat")),
            (Strings{"Pat|4|1|5||7|2.67|Ants|111826100102",
                     "Pat|1|2|3|||5.33|O'Neill's Nine|111826100101",
                     "Pat|3|1|4|1|2|9.00|Ants|111826100101"}));
  EXPECT_EQ(state.MSHFlexGrid3.grid.Text(0, 7), "IP");
  EXPECT_EQ(state.MSHFlexGrid3.grid.ColumnAt(7).alignment, CellAlignment::Right);
}

TEST_F(BrowserTest, QueriesOfTotals) {
  const Strings batting{"Al|Ants|19|1||||||||.053|.053",
                        "Ángel Soto|Ants|11|3|1||1|2|1||2|.455|.818",
                        "Bo Z|Ants|17|||||||||.000|.000",
                        "O'Neill|Ants|28|3|1|1|1|1|2|2|4|.214|.429",
                        "Dee|ants|5||||5||||9|1.000|4.000",
                        "Ángel Soto|Ants of 1961|15||||||3|||.000|.000",
                        "Cy|Élan_%|4|4||||||||1.000|1.000",
                        "Al|O'Neill's Nine|2||1|||3|||1|.500|1.000",
                        "al|O'Neill's Nine|1|1|||||1|||1.000|1.000"};
  const Strings pitching{"Pat|Ants|7|2|9|1|9|11.67|5.40|1.54|6.94|.77|3.50|6.94|.94",
                         "Quinn|Élan_%|5||2|1|3|7.50|6.00||2.40|1.20||3.60|.27",
                         "Pat|O'Neill's Nine|1|2|3|||5.33|1.69|3.38|5.07||.50|.00|.94",
                         "Quinn|O'Neill's Nine|2|||1|1|3.67|4.90|||2.45||2.45|.00"};
  const auto picked = [](const Strings& rows, std::initializer_list<std::size_t> places) {
    Strings some;
    for (const std::size_t place : places) some.push_back(rows.at(place));
    return some;
  };
  EXPECT_EQ(RowsOf(Run(Query::Command6)), batting);
  EXPECT_EQ(RowsOf(Run(Query::Command7, "O'Neill")), picked(batting, {3}));
  EXPECT_EQ(RowsOf(Run(Query::Command8, "ANTS")), picked(batting, {0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(RowsOf(Run(Query::Command14)), pitching);
  EXPECT_EQ(RowsOf(Run(Query::Command13, "pat")), picked(pitching, {0, 2}));
  EXPECT_EQ(RowsOf(Run(Query::Command12, "É")), picked(pitching, {1}));
  // Headers, "<" behind those whose column keeps to the left.
  std::string headers;
  for (const BrowserGrid* shown : {&state.MSHFlexGrid4, &state.MSHFlexGrid5}) {
    for (int i = 1; i < shown->grid.columns(); ++i) {
      headers += shown->grid.Text(0, i);
      headers += shown->grid.ColumnAt(i).alignment == CellAlignment::Left ? "< " : " ";
    }
  }
  EXPECT_EQ(headers,
            "Batter< Team< TAB SI DB TR HRun BBs SO SBs RBIs BAvg SLG "
            "Pitcher< Team< Ks BBs H HRs R TIP Ks/9 BBs/9 H/9 HRs/9 K/BB ERA WHIP ");
}

// A stored 0 divides no better than a Null.
TEST_F(BrowserTest, DivisorsOfNothing) {
  Execute(
      "DELETE FROM Batting; DELETE FROM Pitching;"
      "INSERT INTO Batting (Batter, Team, AB, [1B]) VALUES ('A', 'T', 0, 2), ('B', 'T', NULL, 1);"
      "INSERT INTO Pitching (Pitcher, Team, IP, k, BB, Hits) VALUES"
      " ('A', 'T', 0, 1, 0, 1), ('B', 'T', NULL, 1, 1, NULL), ('C', 'T', 0.0001, 2, NULL, 1),"
      " ('D', 'T', 7, 5, 2, NULL)");
  EXPECT_EQ(RowsOf(Run(Query::Command6)), (Strings{"A|T|0|2|||||||||", "B|T||1|||||||||"}));
  EXPECT_EQ(RowsOf(Run(Query::Command14)),
            (Strings{"A|T|1|0|1|||.00|||||||", "B|T|1|1|||||||||1.00||",
                     "C|T|2||1|||.00|180000.00||90000.00|||.00|10000.00",
                     "D|T|5|2||||7.00|6.43|2.57|||2.50|.00|.29"}));
  EXPECT_EQ(RowsOf(Run(Query::Command1))[2], "C|2||1|||0.0001|T|");
}

TEST_F(BrowserTest, LineScores) {
  const StatGrid& grid = Run(Query::Command4);
  EXPECT_EQ(ColumnOf(grid, 1), (Strings{"Ants of 1961", "Ants", "Ants", "O'Neill's Nine", "ants",
                                        "Bees", "Élan_%", "Ants"}));
  EXPECT_EQ(RowsOf(grid).at(0), "Ants of 1961|0|||||||||||||||||||5|5|8|0|a_VIS|111826100102");
  EXPECT_EQ(grid.ColumnAt(line_score_column::kHost).width, 0);
  EXPECT_EQ(grid.RowColour(2), kWhite);
  EXPECT_EQ(grid.RowColour(3), kGameTint);
  EXPECT_EQ(ColumnOf(Run(Query::Command11, "0118"), 1),
            (Strings{"Ants", "Élan_%", "Bees", "ants"}));
  EXPECT_EQ(grid.RowColour(2), kGameTint);
  EXPECT_EQ(grid.RowColour(3), kWhite);
}

// "Ants" stands inside "Ants of 1961", and is another team.
TEST_F(BrowserTest, BoxScores) {
  OpenBrowser(browser);
  EXPECT_EQ(state.MSHFlexGrid1.grid.ColumnAt(26).ink, kClickableBlue);
  for (const auto& [game, rows] :
       std::map<std::string, std::string>{{"111826100101", "11 12 / 3 / 1 2 / 1 2 "},
                                          {"111826100102", "15 / / 16 17 / 4 "},
                                          {"011826100103", "4 / 5 / 19 / "},
                                          {"011826100104", "5 / / / "}}) {
    SelectGameID(browser, *state.MSHFlexGrid1.grid.FindRow(26, game) + 1, 26);
    EXPECT_EQ(state.Text9.value(), game);
    EXPECT_EQ(state.SSTab1.value(), browser_tab::kGameStats);
    EXPECT_EQ(Column(state.MSHFlexGrid6.grid, kAtBatsColumn) + "/ " +
                  Column(state.MSHFlexGrid7.grid, kStrikeoutsColumn) + "/ " +
                  Column(state.MSHFlexGrid8.grid, kAtBatsColumn) + "/ " +
                  Column(state.MSHFlexGrid11.grid, kStrikeoutsColumn),
              rows);
    EXPECT_EQ(ColumnOf(state.MSHFlexGrid12.grid, 25), (Strings{"a_VIS", "b_HOME"}));
  }
  EXPECT_EQ(state.MSHFlexGrid11.grid.ColumnAt(9).width, 0);
  SelectGameID(browser, 1, 3);
  EXPECT_EQ(state.Text9.value(), "");
}

TEST_F(BrowserTest, StandingsAndPairings) {
  EXPECT_EQ(RowsOf(Run(Query::Command30)),
            (Strings{"Ants of 1961|2|", "Bees|1|", "O'Neill's Nine|1|", "Ants||2", "ants||1"}));
  EXPECT_EQ(RowsOf(Run(Query::Command34)),
            (Strings{"ants  vs  Bees|1", "Ants  vs  O'Neill's Nine|2", "Élan_%  vs  Ants|1"}));
}

TEST_F(BrowserTest, Deletes) {
  OpenBrowser(browser);
  const auto counts = [this] {
    std::string text;
    for (const auto& [table, columns] : SavedTables()) text += Count(table) + " ";
    return text;
  };
  const auto select = [this](const BrowserGrid& grid, const std::string& name) {
    SelectForDelete(browser, grid, grid.grid.FindRow(1, name).value_or(0));
  };
  DeleteSelected(browser);
  EXPECT_EQ(desk.told, Strings{}) << "nothing is selected";
  EXPECT_EQ(counts(), "10 5 8 7 4 ");
  desk.yes = false;
  select(state.MSHFlexGrid9, "O'Neill's Nine");
  DeleteSelected(browser);
  PurgeAll(browser.platform, kBrowserTitle);
  DeleteWinLoss(browser.platform, kBrowserTitle);
  EXPECT_EQ(counts(), "10 5 8 7 4 ");
  desk.yes = true;
  DeleteSelected(browser);
  EXPECT_EQ(desk.told.back(), "Delete of data is complete.");
  EXPECT_EQ(counts(), "10 5 8 6 4 ");
  Execute("INSERT INTO Matchups VALUES ('Élanx  vs  Ants', 1)");
  select(state.MSHFlexGrid10, "Élan_%  vs  Ants");
  DeleteSelected(browser);
  EXPECT_EQ(counts(), "10 5 8 6 4 ") << "the name's own % is none";
  Execute("ALTER TABLE Matchups RENAME TO Kept; CREATE VIEW Matchups AS SELECT * FROM Kept");
  for (const auto operation : {PurgeAll, DeleteWinLoss}) {
    operation(browser.platform, kBrowserTitle);
    EXPECT_TRUE(desk.told.back().starts_with("Nothing was deleted. ")) << desk.told.back();
    EXPECT_EQ(counts(), "10 5 8 6 4 ") << "all or nothing";
  }
  Execute("DROP VIEW Matchups; ALTER TABLE Kept RENAME TO Matchups");
  EXPECT_EQ(state.MSHFlexGrid9.grid.rows(), 6) << "the grids keep their rows";
  DeleteWinLoss(browser.platform, kBrowserTitle);
  EXPECT_EQ(desk.told.back(), "Win/Loss Matchup data has been deleted.");
  EXPECT_EQ(counts(), "10 5 8 0 0 ");
  PurgeAll(browser.platform, kBrowserTitle);
  EXPECT_EQ(desk.told.back(), "Delete of all statistics is complete.");
  EXPECT_EQ(counts(), "0 0 0 0 0 ");
}

TEST_F(BrowserTest, OpeningRunsItsQueries) {
  OpenBrowser(browser);
  EXPECT_EQ(Column(state.MSHFlexGrid3.grid, kStrikeoutsColumn), "4 1 2 3 5 ");
  EXPECT_FALSE(state.MSHFlexGrid6.visible.value());
  RunQuery(browser, Query::Command4);
  EXPECT_FALSE(state.MSHFlexGrid1.grid.ColumnAt(26).ink) << "blue until the next query";
}

TEST_F(BrowserTest, SortsOnDoubleClick) {
  OpenBrowser(browser);
  struct Row {
    BrowserGrid BrowserState::*grid;
    int column;
    SortOrder order;
    int column0, direction;
  };
  SortOnDoubleClick(browser, state.MSHFlexGrid4, 3);
  EXPECT_EQ(state.SortColumn, 0) << "without Ctrl";
  desk.control = true;
  using S = BrowserState;
  for (const Row& row : std::vector<Row>{{&S::MSHFlexGrid4, 3, SortOrder::Ascending, 3, 0},
                                         {&S::MSHFlexGrid4, 3, SortOrder::Descending, 3, 2},
                                         {&S::MSHFlexGrid4, 12, SortOrder::Descending, 12, 2},
                                         {&S::MSHFlexGrid5, 12, SortOrder::Ascending, 12, 1},
                                         {&S::MSHFlexGrid5, 15, SortOrder::Ascending, 15, 1},
                                         {&S::MSHFlexGrid2, 15, SortOrder::Ascending, 15, 1}}) {
    BrowserGrid& grid = state.*row.grid;
    StatGrid expected = grid.grid;
    const bool exists = row.column < expected.columns();
    if (exists) expected.SortRows(row.column, row.order);
    SortOnDoubleClick(browser, grid, row.column);
    EXPECT_EQ(RowsOf(grid.grid), RowsOf(expected));
    EXPECT_EQ(state.SortColumn, row.column0);
    EXPECT_EQ(state.SortDirection, row.direction);
  }
  // A game that is taken out changes no order; a query does.
  RunQuery(browser, Query::Command6);
  SortOnDoubleClick(browser, state.MSHFlexGrid4, 3);
  const Strings sorted = RowsOf(state.MSHFlexGrid4.grid);
  ReadAgain(browser);
  EXPECT_EQ(RowsOf(state.MSHFlexGrid4.grid), sorted);
  RunQuery(browser, Query::Command6);
  EXPECT_NE(RowsOf(state.MSHFlexGrid4.grid), sorted);
  ReadAgain(browser);
  EXPECT_NE(RowsOf(state.MSHFlexGrid4.grid), sorted);
}

TEST(PatternTextTest, Table) {
  struct Row {
    const char* number;
    Decimals decimals;
    const char* text;
  };
  for (const Row& row : std::vector<Row>{{"0.25", Decimals::Three, ".250"},
                                         {"0", Decimals::Two, ".00"},
                                         {"12", Decimals::Two, "12.00"},
                                         {"0.0001", Decimals::Two, ".00"},
                                         {"2.675", Decimals::Two, "2.68"},
                                         {"0.285714285714286", Decimals::Three, ".286"},
                                         {"0.9996", Decimals::Three, "1.000"},
                                         {"99.995", Decimals::Two, "100.00"},
                                         {"0.005", Decimals::Two, ".01"},
                                         {"-0.5", Decimals::Two, "-.50"},
                                         {"-0.001", Decimals::Two, ".00"},
                                         {"180000", Decimals::Two, "180000.00"},
                                         {"", Decimals::Two, ""},
                                         {"x", Decimals::Two, "x"}}) {
    EXPECT_EQ(PatternText(row.number, row.decimals), row.text) << row.number;
  }
}

}  // namespace
}  // namespace dtb
