// Real games, played through the windows into one database, as the browser shows them.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "base/text_cell.h"
#include "browser/queries.h"
#include "database_test.h"
#include "season/season_figures.h"

namespace dtb {
namespace {

// A line of a file of figures: "BATTING Team | Name | AB=4 HR=1".
struct Man {
  std::string kind, team, name;
  std::map<std::string, double> figures;

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
    // Reserves who never stood on the first piece have no row; players who never batted show
    // nothing.
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
              {}};
      if (man.kind == "LINE") continue;
      std::istringstream figures(line.substr(rest + 3));
      for (std::string figure; figures >> figure;) {
        const std::size_t sign = figure.find('=');
        man.figures[figure.substr(0, sign)] = std::stod(figure.substr(sign + 1));
      }
      men.push_back(man);
    }
  }

  // The lines of a kind as rows; those of one player add up.
  Strings Totals(const char* kind, const std::function<std::string(const Man&)>& text) const {
    std::vector<Man> meant;
    for (const Man& man : men) {
      if (man.kind != kind) continue;
      const auto known = std::ranges::find_if(meant, [&](const Man& other) {
        return other.name == man.name && other.team == man.team;
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

  // In the order of their bytes.
  Strings Shown(const StatGrid& grid) {
    EXPECT_EQ(desk.told, Strings{});
    Strings rows = RowsOf(grid);
    std::ranges::sort(rows);
    return rows;
  }

  std::size_t games = 0;
  std::vector<Man> men;
  BrowserState state;
  Browser browser{state, ports};
};

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

TEST_F(RealGamesTest, AddUpInTheBrowserAndInTheSeason) {
  const std::vector<std::pair<Query, Strings>> sums{
      {Query::Command6, Totals("BATTING", BattingSums)},
      {Query::Command14, Totals("PITCHING", PitchingSums)},
      {Query::Command30, {"HOU 2020||1", "New York 1960||2", "OAK 2020|1|", "Pittsburgh 1960|2|"}}};
  for (const auto& [query, rows] : sums) {
    RunQuery(browser, query);
    EXPECT_FALSE(rows.empty());
    const QueryButton& button = QueryButtons()[static_cast<std::size_t>(query)];
    EXPECT_EQ(Shown((state.*button.grid).grid), rows) << button.name;
  }

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
