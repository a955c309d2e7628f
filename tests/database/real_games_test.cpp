// Real games, played through the windows into one database, as the browser shows them.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "base/text_cell.h"
#include "browser/box_score.h"
#include "browser/queries.h"
#include "database_test.h"
#include "season/season_figures.h"

namespace dtb {
namespace {

// A line of a file of figures: "BATTING Team | Name | AB=4 HR=1"; that of a line score has the
// innings in the place of the name.
struct Man {
  std::string kind, team, name;
  std::map<std::string, double> figures;
  std::size_t game = 0;
  bool home = false;

  [[nodiscard]] double operator[](const char* figure) const {
    return figures.contains(figure) ? figures.at(figure) : 0;
  }
};

std::string Rounded(double number, int places) {
  const std::string text = FixedDecimals(number + 1e-9, places);
  return text.starts_with("0.") ? text.substr(1) : text;
}

// "|" and a figure, time and again.
std::string Cells(const Man& man, const Strings& figures) {
  std::string text;
  for (const std::string& figure : figures) {
    text += "|" + (man.figures.contains(figure) ? DecimalText(man.figures.at(figure)) : "");
  }
  return text;
}

class RealGamesTest : public DatabaseTest {
 protected:
  // One pair of teams meets twice.
  RealGamesTest() {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    for (const char* name : {"1960-10-05", "2020-08-07", "1960-10-05"}) {
      const std::string game = std::string(DTB_GAMES "/") + name;
      const std::string command =
          "'" DTB_REPLAY "' --database '" + file.string() + "' '" + game + "'";
      EXPECT_EQ(std::system((command + " > /dev/null").c_str()), 0) << command;
      // The clock gives two games of one second the same GameID.
      for (const char* table : {"Batting", "Pitching", "BoxScores"}) {
        Execute(std::string("UPDATE ") + table + " SET GameID = '98765432100" +
                std::to_string(games) + "' WHERE GameID NOT LIKE '98765432100_'");
      }
      Read(game + "/expected.txt");
      ++games;
    }
    // Reserves who never stood on the first piece have no row; men who never batted show nothing.
    Execute("DELETE FROM Batting WHERE ifnull(AB, BB) IS NULL");
    const Strings stored = Stored("SELECT Batter FROM Batting");
    std::erase_if(men, [&stored](const Man& man) {
      return man.kind == "BATTING" && std::ranges::find(stored, man.name) == stored.end();
    });
  }

  void Read(const std::string& path) {
    std::ifstream stream(path);
    for (std::string line; std::getline(stream, line);) {
      const std::size_t team = line.find(' ') + 1;
      const std::size_t name = line.find(" | ") + 3;
      const std::size_t rest = line.find(" | ", name);
      Man man{line.substr(0, team - 1),
              line.substr(team, name - 3 - team),
              line.substr(name, rest - name),
              {},
              games,
              false};
      // The visitors' line score stands first.
      man.home = man.kind == "LINE" && !men.empty() && men.back().kind == "LINE";
      std::istringstream figures(line.substr(rest + 3));
      for (std::string figure; figures >> figure;) {
        const std::size_t sign = figure.find('=');
        if (man.kind == "LINE") {  // "R 4 H 13"
          figures >> man.figures[figure];
        } else {
          man.figures[figure.substr(0, sign)] = std::stod(figure.substr(sign + 1));
        }
      }
      men.push_back(man);
    }
  }

  // Lines of a kind that pass the test as rows; a man's lines add up where totals are meant.
  using Text = std::function<std::string(const Man&)>;
  using Test = std::function<bool(const Man&)>;
  Strings Rows(const char* kind, const Test& test, const Text& text, bool totals = false) const {
    std::vector<Man> meant;
    for (const Man& man : men) {
      if (man.kind != kind || !test(man)) continue;
      const auto known = std::ranges::find_if(meant, [&](const Man& other) {
        return totals && other.name == man.name && other.team == man.team;
      });
      if (known == meant.end()) {
        meant.push_back(man);
      } else {
        for (const auto& [figure, number] : man.figures) known->figures[figure] += number;
      }
    }
    Strings rows;
    for (const Man& man : meant) rows.push_back(text(man));
    std::ranges::sort(rows);
    return rows;
  }

  // In the order of their bytes, without a GameID, which nobody knows beforehand.
  Strings Shown(const StatGrid& grid) {
    EXPECT_EQ(desk.told, Strings{});
    Strings rows = RowsOf(grid);
    for (std::string& row : rows) {
      const std::size_t last = row.rfind('|') + 1;
      if (row.size() - last == 12 && grid.Text(0, grid.columns() - 1) == "GameID") row.resize(last);
    }
    std::ranges::sort(rows);
    return rows;
  }

  std::size_t games = 0;
  std::vector<Man> men;
  BrowserState state;
  Browser browser{state, ports};
};

std::string BattingRow(const Man& man) {
  return man.name + Cells(man, {"K", "BB", "1B", "2B", "3B", "HR", "SB", "RBI", "AB"}) + "|" +
         man.team + "|";
}

std::string PitchingRow(const Man& man) {
  return man.name + Cells(man, {"K", "BB", "H", "HR", "ER"}) + "|" + Rounded(man["IP"], 2) + "|" +
         man.team + "|";
}

// The list of a team shows innings as they are stored.
std::string StoredPitchingRow(const Man& man) {
  return man.name + Cells(man, {"K", "BB", "H", "HR", "ER", "IP"}) + "|" + man.team + "|";
}

std::string BattingSums(const Man& man) {
  const double hits = man["1B"] + man["2B"] + man["3B"] + man["HR"];
  const double bases = hits + man["2B"] + 2 * man["3B"] + 3 * man["HR"];
  std::string row = man.name + "|" + man.team +
                    Cells(man, {"AB", "1B", "2B", "3B", "HR", "BB", "K", "SB", "RBI"});
  for (const double sum : {hits, bases}) {
    row += "|" + (man["AB"] > 0 ? Rounded(sum / man["AB"], 3) : "");
  }
  return row;
}

std::string PitchingSums(const Man& man) {
  std::string row = man.name + "|" + man.team + Cells(man, {"K", "BB", "H", "HR", "ER"}) + "|" +
                    Rounded(man["IP"], 2);
  for (const char* figure : {"K", "BB", "H", "HR"}) {
    row += "|" + (man[figure] > 0 ? Rounded(9 * man[figure] / man["IP"], 2) : "");
  }
  row += "|" + (man["K"] > 0 && man["BB"] > 0 ? Rounded(man["K"] / man["BB"], 2) : "");
  return row + "|" + Rounded(9 * man["ER"] / man["IP"], 2) + "|" +
         Rounded((man["BB"] + man["H"]) / man["IP"], 2);
}

std::string LineScore(const Man& man) {
  std::string row = man.team;
  std::istringstream innings(man.name);
  for (int inning = 0; inning < 20; ++inning) {
    std::string runs;
    innings >> runs;
    row += "|" + (runs == "-" ? "" : runs);
  }
  return row + Cells(man, {"R", "H"}) + "|0|" + (man.home ? "b_HOME|" : "a_VIS|");
}

TEST_F(RealGamesTest, EveryQueryShowsThem) {
  const Strings ids = Stored("SELECT GameID FROM BoxScores WHERE Host = 'a_VIS' ORDER BY rowid");
  ASSERT_EQ(ids.size(), games);
  const Test all = [](const Man&) { return true; };
  const Test yankees = [](const Man& man) { return man.team == "New York 1960"; };
  const Test second = [](const Man& man) { return man.game == 1; };
  const auto named = [](const char* name) {
    return [name](const Man& man) { return man.name == name; };
  };
  struct Row {
    Query query;
    std::string box;
    Strings rows;
  };
  for (const Row& row : std::vector<Row>{
           {Query::Command5, "", Rows("BATTING", all, BattingRow)},
           {Query::Command5, "yogi b", Rows("BATTING", named("Yogi Berra"), BattingRow)},
           {Query::Command3, "NEW", Rows("BATTING", yankees, BattingRow)},
           {Query::Command9, ids[1], Rows("BATTING", second, BattingRow)},
           {Query::Command2, "", Rows("PITCHING", all, PitchingRow)},
           {Query::Command1, "new y", Rows("PITCHING", yankees, StoredPitchingRow)},
           {Query::Command10, ids[1], Rows("PITCHING", second, PitchingRow)},
           {Query::Command4, "", Rows("LINE", all, LineScore)},
           {Query::Command11, ids[1], Rows("LINE", second, LineScore)},
           {Query::Command6, "", Rows("BATTING", all, BattingSums, true)},
           {Query::Command7, "yogi b", Rows("BATTING", named("Yogi Berra"), BattingSums, true)},
           {Query::Command8, "new", Rows("BATTING", yankees, BattingSums, true)},
           {Query::Command14, "", Rows("PITCHING", all, PitchingSums, true)},
           {Query::Command13, "vern", Rows("PITCHING", named("Vern Law"), PitchingSums, true)},
           {Query::Command12, "new", Rows("PITCHING", yankees, PitchingSums, true)},
           {Query::Command30,
            "",
            {"HOU 2020||1", "New York 1960||2", "OAK 2020|1|", "Pittsburgh 1960|2|"}},
           {Query::Command34,
            "",
            {"HOU 2020  vs  OAK 2020|1", "New York 1960  vs  Pittsburgh 1960|2"}}}) {
    const QueryButton& button = QueryButtons()[static_cast<std::size_t>(row.query)];
    if (button.box != nullptr) (state.*button.box).Set(row.box);
    RunQuery(browser, row.query);
    EXPECT_FALSE(row.rows.empty());
    EXPECT_EQ(Shown((state.*button.grid).grid), row.rows) << button.name << " " << row.box;
  }

  RunQuery(browser, Query::Command4);
  SelectGameID(browser, *state.MSHFlexGrid1.grid.FindRow(26, ids[1]), 26);
  const auto houston = [](const Man& man) { return man.team == "HOU 2020"; };
  const auto oakland = [](const Man& man) { return man.team == "OAK 2020"; };
  EXPECT_EQ(Shown(state.MSHFlexGrid6.grid), Rows("BATTING", houston, BattingRow));
  EXPECT_EQ(Shown(state.MSHFlexGrid7.grid), Rows("PITCHING", houston, StoredPitchingRow));
  EXPECT_EQ(Shown(state.MSHFlexGrid8.grid), Rows("BATTING", oakland, BattingRow));
  EXPECT_EQ(Shown(state.MSHFlexGrid11.grid), Rows("PITCHING", oakland, StoredPitchingRow));
  EXPECT_EQ(Shown(state.MSHFlexGrid12.grid), Rows("LINE", second, LineScore));

  const SeasonFigures season = ReadSeasonFigures(ports.database);
  ASSERT_EQ(season.games.size(), games);
  for (const SeasonPlayer& shown : season.players) {
    double hits = 0;
    double earned = 0;
    double outs = 0;
    for (const Man& man : men) {
      if (man.name != shown.name || man.team != season.teams[shown.team].name) continue;
      hits += man["1B"] + man["2B"] + man["3B"] + (man.kind == "BATTING" ? man["HR"] : 0);
      earned += man["ER"];
      outs += std::round(3 * man["IP"]);
    }
    EXPECT_EQ(shown.batting.value_or(BattingTotals{}).hits, hits) << shown.name;
    const PitchingTotals pitching = shown.pitching.value_or(PitchingTotals{});
    EXPECT_EQ(pitching.earnedRuns, earned) << shown.name;
    EXPECT_EQ(pitching.outs, outs) << shown.name;
  }
}

}  // namespace
}  // namespace dtb
