#include "season/season_pages.h"

#include <numeric>
#include <set>

#include "base/text_cell.h"
#include "browser/queries.h"
#include "export_test.h"
#include "season/season_html.h"
#include "season/season_leaders.h"
#include "season/season_scores.h"
#include "season/season_splits.h"
#include "season/season_standings.h"
#include "season/season_words.h"

namespace dtb {
namespace {

const std::string kHard = "</title>\x01 \"Bad\" & 'O'Neill' \xC3\xB1\xE6\x9D\xB1 \xFF\xEF\xBF\xBF";

// Rows of games made up by chance, as the tables hold them, and beside them what must come out.
class SeasonTest : public ExportTest {
 protected:
  struct Row {
    std::string name, team, id;
    int atBats, hits, homeRuns, outs, earned;
  };
  struct Game {
    std::string id, order;  // year first
    std::array<std::string, 2> teams;
    std::array<int, 2> runs;
  };

  int Draw(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }

  // The months of two years take turns, so the order of the GameIDs is not that of the games.
  void Play(int count) {
    const Strings teams{"Ants", "Bees", "Con", kHard, std::string(300, 'x')};
    for (int i = 0; i < count; ++i) {
      const auto two = [](int n) { return std::string(n < 10 ? "0" : "") + std::to_string(n); };
      const std::string year = two(25 + Draw(2));
      const std::string day = two(1 + Draw(12)) + two(1 + Draw(28));
      const std::string time = "20" + two(i / 60) + two(i % 60);
      const auto first = std::size_t(Draw(int(teams.size())));
      const std::size_t second =
          (first + 1 + std::size_t(Draw(int(teams.size()) - 1))) % teams.size();
      games.push_back({day + year + time,
                       year + day + time,
                       {teams[first], teams[second]},
                       {Draw(7), Draw(7)}});
      for (std::size_t side = 0; side < 2; ++side) Add(games.back(), side);
    }
    std::ranges::stable_sort(games, {}, &Game::order);
  }

  void Add(const Game& game, std::size_t side) {
    const std::string& team = game.teams.at(side);
    Insert(
        "INSERT INTO BoxScores (Team, I1, Runs, Hits, Errors, Host, GameID) VALUES (?, ?, ?, 9, "
        "0, ?, ?)",
        {team, std::to_string(game.runs.at(side)), std::to_string(game.runs.at(side)),
         side == 0 ? "a_VIS" : "b_HOME", game.id});
    for (const std::string name : {"Al", "Bo", kHard.c_str()}) {
      const int hits = Draw(3);
      const int homeRuns = Draw(2);
      const int outs = Draw(12);
      const Row row{name, team, game.id, 5, hits + homeRuns, homeRuns, outs, Draw(4)};
      Insert(
          "INSERT INTO Batting (Batter, AB, [1B], HR, Team, GameID) VALUES (?, 5, ?, ?, ?, ?)",
          {name, hits == 0 ? "" : std::to_string(hits), std::to_string(homeRuns), team, game.id});
      const std::string innings =
          outs == 0 ? ".0001" : std::to_string(outs / 3) + Strings{".00", ".33", ".67"}[outs % 3];
      Insert("INSERT INTO Pitching (Pitcher, IP, Runs, Team, GameID) VALUES (?, ?, ?, ?, ?)",
             {name, innings, std::to_string(row.earned), team, game.id});
      rows.push_back(row);
    }
  }

  void Insert(const char* statement, const Strings& texts) {
    SQLite::Database written(file.string(), SQLite::OPEN_READWRITE);
    SQLite::Statement insert(written, statement);
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (!texts[i].empty()) insert.bind(static_cast<int>(i) + 1, texts[i]);
    }
    insert.exec();
  }

  [[nodiscard]] Row Sum(const std::string& name, const std::string& team,
                        const std::string& id = "") const {
    Row sum{name, team, id, 0, 0, 0, 0, 0};
    for (const Row& row : rows) {
      if (row.name != name || row.team != team || (!id.empty() && row.id != id)) continue;
      sum.atBats += row.atBats;
      sum.hits += row.hits;
      sum.homeRuns += row.homeRuns;
      sum.outs += row.outs;
      sum.earned += row.earned;
    }
    return sum;
  }

  // The lines of a team's split: months as they come, at home before away, opponents by name.
  static Strings InOrder(const SeasonFigures& season, int team, SeasonSplit split) {
    Strings months;
    std::set<std::string> others;
    std::set<std::string> places;
    for (const SeasonGame& game : season.games) {
      const std::size_t side = game.sides[0].team == team ? 0 : 1;
      if (game.sides.at(side).team != team) continue;
      const std::string month = MonthText(game.day);
      if (months.empty() || months.back() != month) months.push_back(month);
      others.insert(season.teams[game.sides.at(1 - side).team].name);
      places.insert(side == 0 ? "away" : "at home");
    }
    if (split == SeasonSplit::Months) return months;
    if (split == SeasonSplit::Opponents) return {others.begin(), others.end()};
    return {places.begin(), places.end()};
  }

  std::mt19937 random{7};
  std::vector<Game> games;
  std::vector<Row> rows;
};

TEST_F(SeasonTest, FiguresAreThoseOfTheRows) {
  Play(30);
  Execute("INSERT INTO BoxScores (Team, Runs, Host, GameID) VALUES ('Ants', 1, 'a_VIS', 'lonely')");
  const SeasonFigures season = ReadSeasonFigures(ports.database);
  ASSERT_EQ(season.games.size(), games.size());
  EXPECT_EQ(season.lonelyLines, 1);
  std::map<std::string, std::vector<int>> courses;
  for (std::size_t i = 0; i < games.size(); ++i) {
    EXPECT_EQ(season.games[i].id, games[i].id) << "in the order of play";
    for (std::size_t side = 0; side < 2; ++side) {
      auto& course = courses[games[i].teams.at(side)];
      const int difference = games[i].runs.at(side) - games[i].runs.at(1 - side);
      course.push_back((course.empty() ? 0 : course.back()) + (difference > 0) - (difference < 0));
    }
  }
  for (std::size_t team = 0; team < season.teams.size(); ++team) {
    SeasonSubject whole;
    whole.team = int(team);
    const auto outings = ReadOutings(ports.database, season, whole);
    for (const SeasonSplit split :
         {SeasonSplit::Months, SeasonSplit::Places, SeasonSplit::Opponents}) {
      const auto lines = SplitOutings(season, whole, outings, split);
      EXPECT_EQ(lines.back().wins, season.teams[team].wins);
      EXPECT_EQ(lines.back().losses, season.teams[team].losses) << "a tie is no loss";
      int won = 0;
      Strings names;
      for (const SplitLine& line : lines) {
        won += line.wins;
        names.push_back(line.name);
      }
      EXPECT_EQ(won, 2 * lines.back().wins) << "the last line is the sum";
      names.pop_back();
      EXPECT_EQ(names, InOrder(season, whole.team, split));
    }
    std::vector<int> above;
    for (const CoursePoint& point : CourseOf(season, int(team))) above.push_back(point.above);
    above.erase(above.begin());
    EXPECT_EQ(above, courses.at(season.teams[team].name)) << season.teams[team].name;
  }
  ASSERT_EQ(season.players.size(), 15U);
  for (const SeasonPlayer& player : season.players) {
    const std::string& team = season.teams[player.team].name;
    const Row sum = Sum(player.name, team);
    EXPECT_EQ(player.batting->hits, sum.hits);
    EXPECT_EQ(player.pitching->outs, sum.outs) << "thirds do not crumble";
    EXPECT_EQ(player.pitching->earnedRuns, sum.earned);
    int seen = 0;
    Row total{};
    for (const SeasonOuting& outing : ReadOutings(
             ports.database, season, {player.team, player.name, false, SeasonRole::Batting})) {
      const Row one = Sum(player.name, team, outing.id);
      total.hits += one.hits;
      EXPECT_EQ(std::get<BattingTotals>(outing.line).hits, one.hits);
      EXPECT_EQ(std::get<BattingTotals>(outing.total).hits, total.hits);
      EXPECT_EQ(season.games[outing.game].id, outing.id);
      ++seen;
    }
    EXPECT_EQ(seen, int(courses.at(team).size()));
  }
  EXPECT_EQ(OutingText(BattingTotals{1, 5, 2, 0, 0, 1, 3, 0, 0, 4}), "2 for 5, 1 HR, 3 RBI, 4 SB");
  // Fifteen at-bats of one player in one game qualify nobody whose team has played more.
  std::vector<double> averages;
  for (const SeasonPlayer& player : season.players) {
    const Row sum = Sum(player.name, season.teams[player.team].name);
    averages.push_back(double(sum.hits) / sum.atBats);
  }
  std::ranges::sort(averages, std::greater{});
  const auto leaders = Leaders(season, SeasonLead::Average, true).first;
  ASSERT_EQ(leaders.size(), kMostLeaders);
  for (std::size_t i = 0; i < leaders.size(); ++i) EXPECT_EQ(leaders[i].value, averages[i]);
  Execute("DELETE FROM Batting WHERE rowid > 3");
  const SeasonFigures few = ReadSeasonFigures(ports.database);
  EXPECT_EQ(Leaders(few, SeasonLead::Average, true).first.size(), 0U);
  EXPECT_EQ(Leaders(few, SeasonLead::Average, false).first.size(), 3U);
}

// The scores of all games, counted in a plain loop; whoever scores very many counts with the last
// place.
TEST_F(SeasonTest, ScoresAreThoseOfTheGames) {
  Play(30);
  SeasonFigures season = ReadSeasonFigures(ports.database);
  season.games[0].sides[0].runs = 31;
  games[0].runs[0] = 31;
  SeasonScores expected;
  std::map<std::string, int> finals;
  for (const Game& game : games) {
    const auto [fewest, most] = std::minmax(game.runs[0], game.runs[1]);
    expected.runs += fewest + most;
    expected.homeWins += game.runs[1] == most && fewest < most ? 1 : 0;
    expected.visitorsWins += game.runs[0] == most && fewest < most ? 1 : 0;
    expected.ties += fewest == most ? 1 : 0;
    expected.shutouts += fewest == 0 && most > 0 ? 1 : 0;
    expected.byOneRun += most - fewest == 1 ? 1 : 0;
    ++finals[(most == 31 ? "15+" : std::to_string(most)) + "-" + std::to_string(fewest) + ": "];
  }
  expected.games = 30;
  const SeasonScores scores = CountScores(season);
  EXPECT_EQ(ScoresText(scores), ScoresText(expected));
  EXPECT_EQ(scores.ofTeam.back(), 1);
  EXPECT_EQ(std::accumulate(scores.ofTeam.begin(), scores.ofTeam.end(), 0), 60);
  std::size_t month = 0;
  const auto marks = MonthMarks(season);
  for (const RunsOfMonth& one : scores.months) {
    double runs = 0;
    EXPECT_EQ(one.month, marks.at(month++).month);
    for (int i = marks[month - 1].game; i < marks[month - 1].game + one.games; ++i) {
      runs += games.at(std::size_t(i)).runs[0] + games.at(std::size_t(i)).runs[1];
    }
    EXPECT_EQ(one.runs, runs) << one.month;
  }
  EXPECT_EQ(month, marks.size());
  for (const auto& [final, times] : finals) {
    const std::string line = final + std::to_string(times) + (times == 1 ? " time\n" : " times\n");
    EXPECT_NE(('\n' + FinalsText(scores)).find('\n' + line), std::string::npos) << line;
  }
}

// Rates are made of whole numbers and rounded once; those who share the tenth place are counted.
TEST_F(SeasonTest, RatesAndTies) {
  struct Case {
    double part, whole;
    int decimals;
    const char* text;
  };
  for (const Case& one : std::vector<Case>{{27 * 21, 120, 2, "4.73"},
                                           {1, 3, 2, "0.33"},
                                           {1, 16, 3, "0.063"},
                                           {2, 3, 3, "0.667"},
                                           {0, 5, 2, "0.00"},
                                           {29999, 2, 0, "15000"},
                                           {1.5, 2, 2, "0.75"}}) {
    EXPECT_EQ(RoundedQuotient(one.part, one.whole, one.decimals), one.text);
  }
  for (int player = 0; player < 12; ++player) {
    Execute("INSERT INTO Pitching (Pitcher, Team, IP, Runs, GameID) VALUES ('P" +
            std::to_string(player) + "', 'Ants', 40, 21, 'x')");
  }
  const SeasonFigures season = ReadSeasonFigures(ports.database);
  const LeaderList list = Leaders(season, SeasonLead::EarnedRunAverage, false);
  EXPECT_EQ(list.first.size(), kMostLeaders);
  EXPECT_EQ(MoreText(list), "and 2 more with 4.73");
  RunQuery(browser, Query::Command14);
  EXPECT_EQ(browser.state.MSHFlexGrid5.grid.Text(1, 14), "4.73");

  const std::vector<CoursePoint> line = LineOf({{0, 0}, {5, 1}, {6, 0}});
  ASSERT_EQ(line.size(), 4U);
  EXPECT_EQ(line[1].game, 4);
  EXPECT_EQ(line[1].above, 0) << "flat to the first game";
}

TEST_F(SeasonTest, PagesAreValidAndTheirLinksLead) {
  Play(12);
  Execute("UPDATE Batting SET HR = 1");  // the three of a team have as many as it has games
  std::filesystem::create_directories(
      Report("Season 2020-01-01 (being written)/players"));  // of a program that was killed
  WriteSeasonPages(browser.platform, kBrowserTitle);
  WriteSeasonPages(browser.platform, kBrowserTitle);
  EXPECT_EQ(Reports(), (Strings{"Season 2026-11-18", "Season 2026-11-18 (2)"}));
  EXPECT_EQ(desk.opened.at(0), Report("Season 2026-11-18/index.html"));
  EXPECT_NE(desk.told.at(0).find(Report("Season 2026-11-18")), std::string::npos);
  EXPECT_EQ(PageFileName("Az O'Zak 09", 3), "az-o-zak-09-3.html");
  const Strings page = Lines("read_pages.py", Report("Season 2026-11-18"));
  const std::set<std::string> lines(page.begin(), page.end());
  const std::string count =
      std::to_string(1 + 5 + 15 + 12 + MonthMarks(ReadSeasonFigures(ports.database)).size());
  EXPECT_TRUE(lines.contains("pages " + count)) << page.front();
  EXPECT_NE(desk.told.at(0).find(count + " pages"), std::string::npos) << desk.told.at(0);
  // Each game's page has both lines of the score and all players.
  for (const Game& game : games) {
    for (std::size_t side = 0; side < 2; ++side) {
      const std::string runs = std::to_string(game.runs.at(side));
      const std::string team = game.teams.at(side) == kHard ? "hard" : game.teams.at(side);
      EXPECT_TRUE(lines.contains("line " + game.id + "|" + team + "|" + runs)) << game.id;
      const int difference = game.runs.at(side) - game.runs.at(1 - side);
      const std::string result = difference > 0 ? "won" : difference < 0 ? "lost" : "tie";
      const std::string& other = game.teams.at(1 - side);
      const std::string against =
          team + (side == 0 ? "|at " : "|") + (other == kHard ? "hard" : other);
      EXPECT_TRUE(lines.contains("players " + against)) << game.id;
      EXPECT_TRUE(lines.contains("teams " + against + "|" + result + "|" + runs + "-" +
                                 std::to_string(game.runs.at(1 - side))))
          << game.id;
    }
  }
  // Each game stands once among those of its month.
  EXPECT_EQ(std::ranges::count_if(
                page, [](const std::string& line) { return line.starts_with("month "); }),
            std::ssize(games));
  for (const auto& [id, order, teams, runs] : games) {
    std::string line = "month";
    for (std::size_t side = 0; side < 2; ++side) {
      line += (side == 0 ? " " : "|") + (teams.at(side) == kHard ? "hard" : teams.at(side)) + "|" +
              std::to_string(runs.at(side));
    }
    EXPECT_TRUE(lines.contains(line)) << line;
  }
  const SeasonFigures season = ReadSeasonFigures(ports.database);
  // Ten lead in home runs, and who shares the tenth place is counted.
  std::vector<int> homeRuns;
  for (const SeasonPlayer& player : season.players) {
    homeRuns.push_back(static_cast<int>(season.teams[player.team].games.size()));
  }
  std::ranges::sort(homeRuns, std::greater{});
  const std::string tenth = std::to_string(homeRuns.at(9));
  const auto more = std::count(homeRuns.begin() + 10, homeRuns.end(), homeRuns[9]);
  ASSERT_GT(more, 0);
  EXPECT_TRUE(lines.contains("index Home runs 1|and " + std::to_string(more) + " more with " +
                             tenth + "||"));
  EXPECT_EQ(std::ranges::count_if(page,
                                  [&tenth](const std::string& line) {
                                    return line.starts_with("index Home runs 1|") &&
                                           line.ends_with("|" + tenth);
                                  }),
            std::count(homeRuns.begin(), homeRuns.begin() + 10, homeRuns[9]));
  for (const Standing& standing : Standings(season)) {
    const SeasonTeam& team = season.teams[standing.team];
    EXPECT_TRUE(lines.contains("standing " + (team.name == kHard ? "hard" : team.name) + "|" +
                               std::to_string(team.wins) + "|" + std::to_string(team.losses)))
        << team.name;
  }
}

TEST_F(SeasonTest, WholeOrNotAtAll) {
  WriteSeasonPages(browser.platform, kBrowserTitle);
  EXPECT_EQ(Reports(), Strings{});
  ASSERT_EQ(desk.told.size(), 1U);
  EXPECT_NE(desk.told[0].find("No game is saved yet"), std::string::npos) << desk.told[0];
  Play(2);
  int steps = 0;
  WriteSeasonPages(browser.platform, kBrowserTitle,
                   [&steps](double /*share*/) { return ++steps > 0; });
  const Strings written = Reports();
  for (int cancelled = 1; cancelled < steps; ++cancelled) {
    int step = 0;
    WriteSeasonPages(browser.platform, kBrowserTitle,
                     [&](double /*share*/) { return ++step < cancelled; });
    EXPECT_EQ(Reports(), written) << cancelled;
  }
  std::filesystem::remove_all(folder / "Game Rpts");
  std::ofstream(folder / "Game Rpts") << "in the way";
  WriteSeasonPages(browser.platform, kBrowserTitle);
  EXPECT_NE(desk.told.back().find("No season pages were written"), std::string::npos);
}

}  // namespace
}  // namespace dtb
