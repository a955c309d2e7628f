#include <algorithm>
#include <cmath>
#include <functional>

#include "base/letters.h"
#include "base/text_cell.h"
#include "browser/box_score.h"
#include "browser/bracket.h"
#include "browser/chosen_game.h"
#include "browser/grid_format.h"
#include "browser/queries.h"
#include "database/deletes.h"
#include "database_test.h"

namespace dtb {
namespace {

using namespace stat_column;

// A row of the season as it was put into the sheets: texts by column number, "" for Null.
struct Line {
  std::string name;
  std::string team;
  std::string game;
  Strings counters;

  [[nodiscard]] std::string Joined() const {
    std::string text = name;
    for (const std::string& counter : counters) text += "|" + counter;
    return text + "|" + team + "|" + game;
  }
};

using Lines = std::vector<Line>;

// A number as the browser shows it with so many decimals, worked out in another way.
std::string Decimal(double number, int places) {
  const double factor = std::pow(10.0, places);
  std::array<char, 60> text{};
  std::snprintf(text.data(), text.size(), "%.*f", places,
                std::floor(number * factor + 0.5 + 1e-7) / factor);
  const std::string full = text.data();
  return full.starts_with("0.") ? full.substr(1) : full;
}

std::string PlainOf(std::string text) {
  if (text.empty()) return text;
  return DecimalText(std::stod(text));
}

// The season: teams of whom one has the other's name inside its own, played in stored order.
class BrowserTest : public DatabaseTest {
 protected:
  BrowserTest() {
    const std::vector<std::pair<std::string, std::string>> games{
        {"Ants", "O'Neill's Nine"},   {"Ants of 1961", "Ants"},   {"Élan_%", "Ants"},
        {"O'Neill's Nine", "Élan_%"}, {"Ants", "O'Neill's Nine"}, {"ants", "Bees"}};
    for (const auto& [visitors, home] : games) {
      ++desk.time.second;
      if (lineScores.size() == 4) desk.time.month = 1;  // a younger game with a lower GameID
      Play(visitors, home);
    }
    desk.told.clear();
  }

  int Draw(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }
  std::string Counter(int below) {
    const int count = Draw(below);
    return count == 0 ? "" : std::to_string(count);
  }

  void Play(const std::string& visitors, const std::string& home) {
    Table table(ports, visitors, home);
    const std::string names[] = {"Ángel Soto", "O'Neill", "al", "Al", "Bo Z", "Cy", "Dee", "Ed"};
    const std::string pitchers[] = {"Pat", "Quinn", "Roy"};
    for (const Side side : {Side::Visitors, Side::Home}) {
      for (int row = 1; row <= 6; ++row) {
        table.Put(side, row, {{kBatter, names[Draw(3) + row - 1]}, {kPlayed, "1"}});
        for (int column = kStrikeouts; column <= kAtBats; ++column) {
          // The third player never bats.
          table.Put(side, row, {{column, row == 3 ? "" : Counter(4)}});
        }
      }
      const char* innings[] = {"5.33", "2.67", ""};
      for (int row = 1; row <= 3; ++row) {
        table.Put(side, row, {{kPitcher, pitchers[row - 1]}, {kInningsPitched, innings[row - 1]}});
        for (int column = kPitcherStrikeouts; column <= kEarnedRuns; ++column) {
          table.Put(side, row, {{column, Counter(3)}});
        }
      }
      SideOf(table.board, side).pitcher.Set("Roy");
      for (int inning = 0; inning < 9; ++inning) {
        ScoreCell& cell = SideOf(table.board, side).score.at(inning);
        cell.text.Set(std::to_string(Draw(3)));
        cell.colour.Set(kFinishedYellow);
      }
    }
    ConstantUpdate(table.board);
    SaveGame(table.board);
    ASSERT_EQ(desk.told.back(), "Data successfully recorded");
    Note(table);
  }

  // Takes down what was saved from the sheet, home team first.
  void Note(Table& table) {
    const std::string game = table.sheet.tb_TimeStamp2.value();
    for (const Side side : {Side::Home, Side::Visitors}) {
      const std::string team(
          table.sheet.grd_BoxScore.Text(SideOf(table.board, side).boxScoreRow, 0));
      for (int row = 1; row < kStatRows; ++row) {
        Line batter{table.Cell(side, row, kBatter), team, game, {}};
        for (int column = kStrikeouts; column <= kAtBats; ++column) {
          batter.counters.push_back(table.Cell(side, row, column));
        }
        if (table.Cell(side, row, kPlayed) == "1") batting.push_back(batter);
        Line pitcher{table.Cell(side, row, kPitcher), team, game, {}};
        for (int column = kPitcherStrikeouts; column <= kInningsPitched; ++column) {
          pitcher.counters.push_back(PlainOf(table.Cell(side, row, column)));
        }
        if (!pitcher.name.empty()) pitching.push_back(pitcher);
      }
    }
    for (const int row : {1, 2}) {
      Line line{std::string(table.sheet.grd_BoxScore.Text(row, 0)),
                row == 1 ? "a_VIS" : "b_HOME",
                game,
                {}};
      for (int column = 1; column <= 23; ++column) {
        line.counters.emplace_back(table.sheet.grd_BoxScore.Text(row, column));
      }
      lineScores.push_back(line);
    }
  }

  using Test = std::function<bool(const Line&)>;
  static Strings Picked(const Lines& lines, const Test& test, int direction = 0,
                        bool formatIP = false) {
    Lines picked;
    for (const Line& line : lines) {
      if (test(line)) picked.push_back(line);
    }
    std::ranges::stable_sort(picked, [direction](const Line& a, const Line& b) {
      return direction < 0 ? a.game > b.game : direction > 0 && a.game < b.game;
    });
    Strings rows;
    for (Line& line : picked) {
      if (formatIP) line.counters.back() = Decimal(std::stod(line.counters.back()), 2);
      rows.push_back(line.Joined());
    }
    return rows;
  }

  // Sums of the counters of each player of each team that pass the test; "" where all were "".
  static Lines Totals(const Lines& lines, const Test& test) {
    Lines totals;
    for (const Line& line : lines) {
      if (!test(line)) continue;
      const auto same = [&line](const Line& t) {
        return t.name == line.name && t.team == line.team;
      };
      auto total = std::ranges::find_if(totals, same);
      if (total == totals.end()) {
        totals.push_back({line.name, line.team, "", Strings(line.counters.size())});
        total = totals.end() - 1;
      }
      for (std::size_t i = 0; i < line.counters.size(); ++i) {
        if (line.counters[i].empty()) continue;
        total->counters[i] =
            std::to_string(NumberOf(total->counters[i]) + std::stod(line.counters[i]));
      }
    }
    std::ranges::sort(totals, [](const Line& a, const Line& b) {
      const int teams = CompareNames(a.team, b.team);
      if (teams != 0) return teams < 0;
      if (a.team != b.team) return a.team < b.team;
      const int names = CompareNames(a.name, b.name);
      return names != 0 ? names < 0 : a.name < b.name;
    });
    return totals;
  }

  static Strings BattingTotals(const Lines& lines, const Test& test) {
    Strings rows;
    for (const Line& line : Totals(lines, test)) {
      const Strings& c = line.counters;  // k BB 1B 2B 3B HR SB RBI AB
      std::string row = line.name + "|" + line.team;
      for (const int i : {8, 2, 3, 4, 5, 1, 0, 6, 7}) row += "|" + PlainOf(c[i]);
      const double atBats = NumberOf(c[8]);
      const double hits = NumberOf(c[2]) + NumberOf(c[3]) + NumberOf(c[4]) + NumberOf(c[5]);
      const double bases =
          NumberOf(c[2]) + 2 * NumberOf(c[3]) + 3 * NumberOf(c[4]) + 4 * NumberOf(c[5]);
      row += "|" + (atBats > 0 ? Decimal(hits / atBats, 3) : "");
      row += "|" + (atBats > 0 ? Decimal(bases / atBats, 3) : "");
      rows.push_back(row);
    }
    return rows;
  }

  static Strings PitchingTotals(const Lines& lines, const Test& test) {
    Strings rows;
    for (const Line& line : Totals(lines, test)) {
      const Strings& c = line.counters;  // k BB Hits HR Runs IP
      const double innings = NumberOf(c[5]);
      std::string row = line.name + "|" + line.team;
      for (const int i : {0, 1, 2, 3, 4}) row += "|" + PlainOf(c[i]);
      row += "|" + Decimal(innings, 2);
      for (const int i : {0, 1, 2, 3}) {
        row += "|" + (c[i].empty() ? "" : Decimal(NumberOf(c[i]) / (innings / 9), 2));
      }
      const bool walks = NumberOf(c[1]) > 0 && !c[0].empty();
      row += "|" + (walks ? Decimal(NumberOf(c[0]) / NumberOf(c[1]), 2) : "");
      row += "|" + Decimal(NumberOf(c[4]) / innings * 9, 2);
      row += "|" + Decimal((NumberOf(c[1]) + NumberOf(c[2])) / innings, 2);
      rows.push_back(row);
    }
    return rows;
  }

  Strings Run(Query query, const std::string& box = {}) {
    const QueryButton& button = QueryButtons()[static_cast<std::size_t>(query)];
    EXPECT_EQ(button.query, query);
    if (button.box != nullptr) (state.*button.box).Set(box);
    RunQuery(browser, query);
    EXPECT_EQ(desk.told, Strings{});
    return RowsOf((state.*button.grid).grid);
  }

  std::mt19937 random{1927};
  Lines batting;
  Lines pitching;
  Lines lineScores;
  BrowserState state;
  Browser browser{state, ports};
};

const auto kAll = [](const Line&) { return true; };
auto NameIs(Strings names) {
  return [names](const Line& line) { return std::ranges::find(names, line.name) != names.end(); };
}
auto TeamIs(Strings teams) {
  return [teams](const Line& line) { return std::ranges::find(teams, line.team) != teams.end(); };
}
auto GameIs(std::string game) {
  return [game](const Line& line) { return line.game == game; };
}

TEST_F(BrowserTest, QueriesByGame) {
  const std::string game = batting.front().game;
  const Strings ants{"Ants", "Ants of 1961", "ants"};
  EXPECT_EQ(Run(Query::Command5), Picked(batting, kAll, -1));
  EXPECT_EQ(Run(Query::Command5, "ÁNG"), Picked(batting, NameIs({"Ángel Soto"}), -1));
  EXPECT_EQ(Run(Query::Command5, "o'n"), Picked(batting, NameIs({"O'Neill"}), -1));
  EXPECT_EQ(Run(Query::Command5, "_l"), Picked(batting, NameIs({"al", "Al"}), -1));
  EXPECT_EQ(Run(Query::Command5, "x' OR 'a'='a"), Strings{});
  EXPECT_EQ(Run(Query::Command3, "aNts"), Picked(batting, TeamIs(ants), 1));
  EXPECT_EQ(Run(Query::Command9, game.substr(3)), Picked(batting, GameIs(game)));
  EXPECT_EQ(Run(Query::Command2, "%u"), Picked(pitching, NameIs({"Quinn"}), -1, true));
  EXPECT_EQ(Run(Query::Command1, "O'"), Picked(pitching, TeamIs({"O'Neill's Nine"}), 1));
  EXPECT_EQ(Run(Query::Command10, game), Picked(pitching, GameIs(game), 0, true));
  EXPECT_EQ(state.MSHFlexGrid3.grid.Text(0, 7), "IP");
  EXPECT_EQ(state.MSHFlexGrid3.grid.ColumnAt(7).alignment, CellAlignment::Right);
}

TEST_F(BrowserTest, QueriesOfTotals) {
  const Strings ants{"Ants", "Ants of 1961", "ants"};
  EXPECT_EQ(Run(Query::Command6), BattingTotals(batting, kAll));
  EXPECT_EQ(Run(Query::Command7, "O'Neill"), BattingTotals(batting, NameIs({"O'Neill"})));
  EXPECT_EQ(Run(Query::Command8, "ANTS"), BattingTotals(batting, TeamIs(ants)));
  EXPECT_EQ(Run(Query::Command14), PitchingTotals(pitching, kAll));
  EXPECT_EQ(Run(Query::Command13, "pat"), PitchingTotals(pitching, NameIs({"Pat"})));
  EXPECT_EQ(Run(Query::Command12, "É"), PitchingTotals(pitching, TeamIs({"Élan_%"})));
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
  EXPECT_EQ(Run(Query::Command6), (Strings{"A|T|0|2|||||||||", "B|T||1|||||||||"}));
  EXPECT_EQ(Run(Query::Command14), (Strings{"A|T|1|0|1|||.00|||||||", "B|T|1|1|||||||||1.00||",
                                            "C|T|2||1|||.00|180000.00||90000.00|||.00|10000.00",
                                            "D|T|5|2||||7.00|6.43|2.57|||2.50|.00|.29"}));
  EXPECT_EQ(Run(Query::Command1)[2], "C|2||1|||0.0001|T|");
}

TEST_F(BrowserTest, LineScores) {
  const auto expected = [this](std::vector<std::size_t> order) {
    Strings rows;
    for (const std::size_t i : order) {
      std::string row = lineScores[i].name;
      for (const std::string& cell : lineScores[i].counters) row += "|" + cell;
      rows.push_back(row + "|" + lineScores[i].team + "|" + lineScores[i].game);
    }
    return rows;
  };
  EXPECT_EQ(Run(Query::Command4), expected({2, 3, 0, 1, 10, 11, 8, 9, 6, 7, 4, 5}));
  const StatGrid& grid = state.MSHFlexGrid1.grid;
  EXPECT_EQ(grid.ColumnAt(line_score_column::kHost).width, 0);
  EXPECT_EQ(grid.RowColour(2), kWhite);
  EXPECT_EQ(grid.RowColour(3), kGameTint);
  EXPECT_EQ(Run(Query::Command11, "0118"), expected({4, 5, 6, 7, 8, 9, 10, 11}));
  EXPECT_EQ(grid.RowColour(2), kGameTint);
  EXPECT_EQ(grid.RowColour(3), kWhite);
}

TEST_F(BrowserTest, BoxScores) {
  OpenBrowser(browser);
  EXPECT_EQ(state.MSHFlexGrid1.grid.ColumnAt(26).ink, kClickableBlue);
  for (const Line& line : lineScores) {
    SelectGameID(browser, *state.MSHFlexGrid1.grid.FindRow(26, line.game) + 1, 26);
    EXPECT_EQ(state.Text9.value(), line.game);
    EXPECT_EQ(state.SSTab1.value(), browser_tab::kGameStats);
    const bool visitors = line.team == "a_VIS";
    // "Ants" stands inside "Ants of 1961", and is another team.
    const auto picked = [&](const Line& l) { return l.game == line.game && l.team == line.name; };
    EXPECT_EQ(RowsOf((visitors ? state.MSHFlexGrid6 : state.MSHFlexGrid8).grid),
              Picked(batting, picked));
    EXPECT_EQ(RowsOf((visitors ? state.MSHFlexGrid7 : state.MSHFlexGrid11).grid),
              Picked(pitching, picked));
    EXPECT_EQ(ColumnOf(state.MSHFlexGrid12.grid, 25), (Strings{"a_VIS", "b_HOME"}));
  }
  EXPECT_EQ(state.MSHFlexGrid11.grid.ColumnAt(9).width, 0);
  SelectGameID(browser, 1, 3);
  EXPECT_EQ(state.Text9.value(), "");
}

TEST_F(BrowserTest, StandingsAndPairings) {
  std::map<std::string, std::pair<int, int>> records;
  std::map<std::string, int> pairings;
  for (std::size_t i = 0; i < lineScores.size(); i += 2) {
    const Line& visitors = lineScores[i];
    const Line& home = lineScores[i + 1];
    const int margin = std::stoi(visitors.counters[20]) - std::stoi(home.counters[20]);
    records[visitors.name].first += margin > 0 ? 1 : 0;
    records[visitors.name].second += margin < 0 ? 1 : 0;
    records[home.name].first += margin < 0 ? 1 : 0;
    records[home.name].second += margin > 0 ? 1 : 0;
    ++pairings[visitors.name + "  vs  " + home.name];
  }
  const auto number = [](int count) { return count == 0 ? "" : std::to_string(count); };
  const Strings standings = Run(Query::Command30);
  ASSERT_EQ(standings.size(), records.size());
  std::pair<int, std::string> last{100, ""};
  for (const std::string& row : standings) {
    const std::string team = row.substr(0, row.find('|'));
    const auto [wins, losses] = records.at(team);
    EXPECT_EQ(row, team + "|" + number(wins) + "|" + number(losses));
    EXPECT_TRUE(wins < last.first || (wins == last.first && CompareNames(last.second, team) <= 0));
    last = {wins, team};
  }
  Strings expected;
  for (const auto& [pairing, games] : pairings) {
    expected.push_back(pairing + "|" + std::to_string(games));
  }
  std::ranges::sort(expected, [](const auto& a, const auto& b) { return CompareNames(a, b) < 0; });
  EXPECT_EQ(Run(Query::Command34), expected);
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
  EXPECT_EQ(counts(), "72 36 12 12 6 ");
  desk.yes = false;
  select(state.MSHFlexGrid9, "O'Neill's Nine");
  DeleteSelected(browser);
  PurgeAll(browser.platform, kBrowserTitle);
  DeleteWinLoss(browser.platform, kBrowserTitle);
  EXPECT_EQ(counts(), "72 36 12 12 6 ");
  desk.yes = true;
  DeleteSelected(browser);
  EXPECT_EQ(desk.told.back(), "Delete of data is complete.");
  EXPECT_EQ(counts(), "72 36 12 9 6 ");
  Execute("INSERT INTO Matchups VALUES ('Élanx  vs  Ants', 1)");
  select(state.MSHFlexGrid10, "Élan_%  vs  Ants");
  DeleteSelected(browser);
  EXPECT_EQ(counts(), "72 36 12 9 6 ") << "the name's own % is none";
  Execute("ALTER TABLE Matchups RENAME TO Kept; CREATE VIEW Matchups AS SELECT * FROM Kept");
  for (const auto operation : {PurgeAll, DeleteWinLoss}) {
    operation(browser.platform, kBrowserTitle);
    EXPECT_TRUE(desk.told.back().starts_with("Nothing was deleted. ")) << desk.told.back();
    EXPECT_EQ(counts(), "72 36 12 9 6 ") << "all or nothing";
  }
  Execute("DROP VIEW Matchups; ALTER TABLE Kept RENAME TO Matchups");
  EXPECT_EQ(state.MSHFlexGrid9.grid.rows(), 7) << "the grids keep their rows";
  DeleteWinLoss(browser.platform, kBrowserTitle);
  EXPECT_EQ(desk.told.back(), "Win/Loss Matchup data has been deleted.");
  EXPECT_EQ(counts(), "72 36 12 0 0 ");
  PurgeAll(browser.platform, kBrowserTitle);
  EXPECT_EQ(desk.told.back(), "Delete of all statistics is complete.");
  EXPECT_EQ(counts(), "0 0 0 0 0 ");
}

TEST_F(BrowserTest, OpeningRunsItsQueries) {
  OpenBrowser(browser);
  EXPECT_EQ(RowsOf(state.MSHFlexGrid3.grid), Picked(pitching, kAll, -1, true));
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

TEST_F(DatabaseTest, BracketLastsFromOpeningToOpening) {
  {
    BrowserState state;
    Browser browser{state, ports};
    OpenBrowser(browser);
    state.tb_Team.Set("Ants");
    PlaceInBracket(browser, state.lbl_Team[15]);
    PlaceInBracket(browser, state.lbl_TeamRnd4[1]);
    PlaceInBracket(browser, state.lbl_Champ);
    state.tb_Team.Set("");
    PlaceInBracket(browser, state.lbl_TeamRnd4[1]);
    StoreBracket(browser);
  }
  EXPECT_EQ(desk.settings.size(), 31U);
  EXPECT_EQ(desk.settings["labels/lbl_Team(15)"], "Ants");
  EXPECT_EQ(desk.settings["labels/lbl_Champ"], "Ants");
  BrowserState state;
  Browser browser{state, ports};
  OpenBrowser(browser);
  EXPECT_EQ(state.lbl_Team[15].value() + state.lbl_TeamRnd4[1].value(), "Ants");
  EXPECT_EQ(state.tb_Team.value(), "");
  desk.yes = false;
  ResetBracket(browser);
  EXPECT_EQ(state.lbl_Champ.value(), "Ants");
  desk.yes = true;
  ResetBracket(browser);
  EXPECT_EQ(desk.settings["labels/lbl_Champ"], "Ants") << "until the form closes";
  StoreBracket(browser);
  EXPECT_EQ(std::ranges::count_if(desk.settings, [](const auto& s) { return s.second.empty(); }),
            31);
}

}  // namespace
}  // namespace dtb
