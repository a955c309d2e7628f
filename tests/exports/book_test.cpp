// The book of all seasons, beside plain loops over the rows of its databases.
#include "book/book.h"

#include <numeric>
#include <set>

#include "base/settings_keys.h"
#include "book/book_pages.h"
#include "database/season_shelf.h"
#include "export_test.h"
#include "platform/sqlite/sqlite_copies.h"
#include "platform/sqlite/sqlite_seasons.h"
#include "platform/zip/zip_archives.h"

namespace dtb::book {
namespace {

const std::string kHard = "Az \"Bad\" & 'O'Neill' <b> \xC3\xB1";

struct Row {
  std::string name, team, id;
  std::array<int, 5> figures;  // singles to home runs, and further at-bats
};
struct Pitched {
  std::string name, team, id;
  int outs, hits, strikeouts;
};
struct Game {
  std::string id;
  std::array<std::string, 2> teams;
  std::array<int, 2> runs;
};
struct Season {
  std::string name;
  std::vector<Game> games = {};
  std::vector<Row> batted = {};
  std::vector<Pitched> pitched = {};
};

class BookTest : public ExportTest {
 protected:
  BookTest() { std::filesystem::create_directories(folder / "Seasons"); }

  [[nodiscard]] std::filesystem::path FileOf(const std::string& season) const {
    return folder / "Seasons" / (season + ".mdb");
  }
  // "0412yy2000gg": the n-th game, a day each.
  static std::string IdOf(int year, int game) {
    const auto two = [](int n) { return std::string(n < 10 ? "0" : "") + std::to_string(n); };
    return two(1 + game / 28) + two(1 + game % 28) + two(year) + "200000";
  }

  void Write(const Season& season) const {
    SQLite::Database written(FileOf(season.name).string(),
                             SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    written.exec(ReadAll(DTB_SCHEMA));
    SQLite::Transaction transaction(written);
    const auto insert = [&written](const char* into, const Strings& texts) {
      std::string statement = std::string("INSERT INTO ") + into + " VALUES (?";
      for (std::size_t i = 1; i < texts.size(); ++i) statement += ", ?";
      SQLite::Statement row(written, statement + ")");
      for (std::size_t i = 0; i < texts.size(); ++i) row.bind(int(i) + 1, texts[i]);
      row.exec();
    };
    for (const Game& game : season.games) {
      for (std::size_t side = 0; side < 2; ++side) {
        insert("BoxScores (Team, Runs, Hits, Host, GameID)",
               {game.teams.at(side), std::to_string(game.runs.at(side)),
                std::to_string(HitsOf(season, game.id, game.teams.at(side))),
                side == 0 ? "a_VIS" : "b_HOME", game.id});
      }
    }
    for (const Row& row : season.batted) {
      Strings texts{row.name, row.team, row.id};
      int atBats = 0;
      for (const int figure : row.figures) atBats += figure;
      texts.push_back(std::to_string(atBats));
      for (std::size_t i = 0; i < 4; ++i) texts.push_back(std::to_string(row.figures.at(i)));
      insert("Batting (Batter, Team, GameID, AB, [1B], [2B], [3B], HR)", texts);
    }
    for (const Pitched& row : season.pitched) {
      insert("Pitching (Pitcher, Team, GameID, IP, Hits, k)",
             {row.name, row.team, row.id,
              std::to_string(row.outs / 3) + Strings{".00", ".33", ".67"}[row.outs % 3],
              std::to_string(row.hits), std::to_string(row.strikeouts)});
    }
    transaction.commit();
  }
  static int HitsOf(const Season& season, const std::string& id, const std::string& team) {
    int hits = 0;
    for (const Row& row : season.batted) {
      if (row.id != id || row.team != team) continue;
      hits += std::accumulate(row.figures.begin(), row.figures.begin() + 4, 0);
    }
    return hits;
  }

  Book Read() {
    auto book = ReadBook(platform, [](double) { return true; });
    return book ? std::move(*book) : Book();
  }

  SqliteCopies copies{file};
  SqliteSeasons seasons{folder, database, copies, [](const std::filesystem::path&) {}};
  ZipArchives archives;
  Platform platform{desk,    desk, desk, desk, desk, desk, database, copies,   desk,
                    seasons, desk, desk, desk, desk, desk, desk,     archives, folder};
};

// Three seasons made up by chance, in which each name is one of a team.
class MadeUp : public BookTest {
 protected:
  int Draw(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }

  Season Make(int year) {
    const Strings teams{"Ants", "Bees", "Cats"};
    Season season{.name = "19" + std::to_string(year)};
    for (int i = 0; i < 40; ++i) {
      const auto first = std::size_t(Draw(3));
      const std::size_t second = (first + 1 + std::size_t(Draw(2))) % 3;
      season.games.push_back({IdOf(year, i), {teams[first], teams[second]}, {Draw(4), Draw(4)}});
      const std::size_t held = std::size_t(Draw(8));  // the side without a hit, if there is one
      for (std::size_t side = 0; side < 2; ++side) {
        const std::string& team = season.games.back().teams.at(side);
        for (const char* name : {" Al", " Bo"}) {
          Row row{
              team + name, team, season.games.back().id, {Draw(3), Draw(2), Draw(2), Draw(2), 2}};
          if (side == held) row.figures = {0, 0, 0, 0, Draw(3)};
          season.batted.push_back(row);
        }
        const int hits = 1 - side == held ? 0 : 1 + Draw(3);
        season.pitched.push_back(
            {team + " Cy", team, season.games.back().id, 15 + Draw(6), hits, Draw(9)});
        season.pitched.push_back({team + " Di", team, season.games.back().id, 10, 0, Draw(3)});
      }
    }
    return season;
  }
  static int Hits(const Row& row) {
    return std::accumulate(row.figures.begin(), row.figures.begin() + 4, 0);
  }

  std::mt19937 random{11};
};

// The values of a list, the best first.
std::vector<double> Values(const TopList<Feat>& list) {
  std::vector<double> values;
  for (const Feat& feat : list.first()) values.push_back(feat.value);
  return values;
}

// What a list shows of all these values: ten, or those who share the first place.
std::vector<double> Shown(std::vector<double> values) {
  std::ranges::sort(values, std::greater{});
  const auto tied = std::size_t(std::ranges::count(values, values.empty() ? 0 : values.front()));
  values.resize(std::min({values.size(), std::max(kShownTop, tied), kMostTied}));
  return values;
}

// Runs of two or more games that went on, of games that did (1), that did not (-1), and others.
std::vector<double> Streaks(const std::map<std::string, std::vector<int>>& games) {
  std::vector<double> streaks;
  for (const auto& [who, results] : games) {
    int run = 0;
    const auto end = [&] {
      if (run > 1) streaks.push_back(run);
      run = 0;
    };
    for (const int result : results) {
      if (result > 0) ++run;
      if (result < 0) end();
    }
    end();
  }
  return streaks;
}

TEST_F(MadeUp, TheBookIsWhatTheRowsTell) {
  std::vector<Season> made;
  for (const int year : {62, 60, 61}) made.push_back(Make(year));
  for (const Season& season : made) Write(season);
  const Book book = Read();
  ASSERT_EQ(book.chapters.size(), 3U);
  EXPECT_EQ(book.empty.size() + book.leftOut.size(), 1U) << "the usual season";
  std::map<std::string, double> career;  // home runs
  std::vector<double> ofSeason;
  std::size_t feats = 0;
  for (const Season& season : made) {
    const auto chapter = std::ranges::find(book.chapters, season.name, &Chapter::name);
    ASSERT_EQ(chapter - book.chapters.begin(), season.name.back() - '0') << "in the order of days";
    std::map<std::string, std::vector<int>> results;
    std::size_t noHitters = 0;
    for (const Game& game : season.games) {
      for (std::size_t side = 0; side < 2; ++side) {
        const std::string& team = game.teams.at(side);
        const int more = game.runs.at(side) - game.runs.at(1 - side);
        results[team].push_back((more > 0) - (more < 0));
        int outs = 0;
        int hits = HitsOf(season, game.id, game.teams.at(1 - side));
        for (const Pitched& row : season.pitched) {
          if (row.id != game.id || row.team != team) continue;
          outs += row.outs;
          hits += row.hits;
        }
        noHitters += outs >= 27 && hits == 0 ? 1 : 0;
      }
    }
    EXPECT_EQ(Values(chapter->winning), Shown(Streaks(results)));
    EXPECT_EQ(chapter->noHitters.size(), noHitters);
    const auto share = [&results](const Placing& team) {
      const auto won = std::ranges::count(results[team.team], 1);
      const auto lost = std::ranges::count(results[team.team], -1);
      EXPECT_EQ(won, team.wins);
      EXPECT_EQ(lost, team.losses);
      return double(won) / double(won + lost);
    };
    EXPECT_TRUE(std::ranges::is_sorted(chapter->groups.at(0).standings, std::greater{}, share));

    std::vector<double> inGame;
    std::map<std::string, double> homeRuns;
    std::map<std::string, std::vector<int>> hitting;
    std::size_t cycles = 0;
    for (const Row& row : season.batted) {
      homeRuns[row.name] += row.figures[3];
      career[row.name] += row.figures[3];
      cycles += *std::min_element(row.figures.begin(), row.figures.begin() + 4) > 0 ? 1 : 0;
      if (Hits(row) > 0) inGame.push_back(Hits(row));
      hitting[row.name].push_back(Hits(row) > 0 ? 1 : row.figures[4] > 0 ? -1 : 0);
    }
    for (const auto& [name, count] : homeRuns) ofSeason.push_back(count);
    EXPECT_EQ(Values(chapter->bestGames[0]), Shown(inGame)) << season.name;
    EXPECT_EQ(Values(chapter->hitting), Shown(Streaks(hitting))) << season.name;
    EXPECT_EQ(chapter->cycles.size(), cycles);
    feats += noHitters > 0 && cycles > 0 ? 1 : 0;
  }
  EXPECT_EQ(feats, 3U) << "all of them have some to find";
  std::size_t batters = 0;
  for (const Career& one : book.careers.all) {
    EXPECT_EQ(one.chapters.size(), 3U) << one.name;
    if (!one.batting) continue;
    ++batters;
    EXPECT_EQ(one.batting->homeRuns, career.at(one.name));
  }
  EXPECT_EQ(batters, career.size());

  // The same on the pages: the lists of a season, and of a career.
  WriteBook(platform, {});
  std::vector<double> first;
  std::vector<double> third;
  for (const std::string& line : Lines("read_pages.py", Report("All seasons 2026-11-18"))) {
    if (!line.starts_with("records Home runs ") || line.find(" more with ") != std::string::npos) {
      continue;
    }
    const double count = NumberOf(line.substr(line.rfind('|') + 1));
    if (line.starts_with("records Home runs 1")) first.push_back(count);
    if (line.starts_with("records Home runs 3")) third.push_back(count);
  }
  EXPECT_EQ(first, Shown(ofSeason));
  EXPECT_EQ(third.size(), career.size());
  EXPECT_EQ(third.front(), std::ranges::max_element(career, {}, [](const auto& one) {
                             return one.second;
                           })->second);
}

// Lists that keep the best: ties of the last place are counted, those of the first all shown.
TEST(TopListTest, TiesAreNamedOrCounted) {
  struct Entry {
    double value;
  };
  struct Case {
    std::vector<std::pair<int, int>> came;  // so often such a value, in this order
    std::size_t shown;
    int alsoLast;
  };
  for (const Case& one : std::vector<Case>{{{{3, 4}, {2, 4}}, 8, 0},
                                           {{{2, 9}, {3, 4}}, 10, 3},
                                           {{{3, 12}, {2, 99}}, 12, 0},
                                           {{{3, 45}}, kMostTied, 5},
                                           {{{3, 45}, {4, 2}}, 10, 37},
                                           {{{3, 45}, {4, 11}}, 11, 0}}) {
    TopList<Entry> whole;
    TopList<Entry> merged;
    for (const auto& [value, times] : one.came) {
      TopList<Entry> part;
      for (int i = 0; i < times; ++i) {
        whole.Add({double(value)});
        part.Add({double(value)});
      }
      merged.Add(part);
    }
    for (const TopList<Entry>& list : {whole, merged}) {
      EXPECT_EQ(list.first().size(), one.shown);
      EXPECT_EQ(list.alsoLast(), one.alsoLast);
    }
  }
}

// Games of one at-bat each: the days, and who was in them.
using Part = std::tuple<std::string, std::string, std::vector<int>>;  // name, team, days
Season Of(const std::string& name, int year, const std::vector<Part>& parts,
          const std::function<std::string(int, int)>& id) {
  Season season{.name = name};
  std::set<int> days;
  for (const auto& [who, team, own] : parts) {
    for (const int day : own) {
      season.batted.push_back({who, team, id(year, day), {1, 0, 0, 0, 0}});
      if (days.insert(day).second) {
        season.games.push_back({id(year, day), {team, "Others"}, {1, 0}});
      }
    }
  }
  return season;
}

TEST_F(BookTest, APlayerIsKnownByIdOrByName) {
  std::filesystem::create_directories(folder / "real");
  std::ofstream(folder / "real/TEAM1961") << "ANT,A,Antville,Ants\nBEE,A,Beetown,Bees\n";
  std::ofstream(folder / "real/ANT1961.ROS") << "garcl001,Garcia,Luis,R,R,ANT,SS\n"
                                                "smitj001,Smith,Joe,R,R,ANT,P\n";
  std::ofstream(folder / "real/BEE1961.ROS") << "garcl001,Garcia,Luis,R,R,BEE,SS\n"
                                                "garcl002,Garcia,Luis,R,R,BEE,SS\n";
  const std::string real = (folder / "real").string();
  desk.settings["labels/season_archive of 1961"] = real;
  desk.settings["labels/season_archive of 1962"] = real;
  desk.settings["labels/season_archive of 1963"] = real + " gone";
  const auto write = [this](const std::string& name, int year, const std::vector<Part>& parts) {
    Write(Of(name, year, parts, IdOf));
  };
  write("1960", 60,
        {{"Traded", "Ants", {1, 2}},  // left the one before he came to the other
         {"Traded", "Bees", {3, 4}},
         {"Twin", "Ants", {1, 3}},  // two of a name
         {"Twin", "Bees", {2}},
         {"Joe Smith", "Ants", {1}},
         {"Once", "Ants", {1}}});
  write("1961", 61,
        {{"Luis Garcia", "Antville 1961", {1, 4}},  // one id, two teams at a time
         {"Luis Garcia", "Beetown 1961", {2}},
         {"Luis Garcia (2)", "Beetown 1961", {2}},
         {"Joe Smith", "Antville 1961", {1}},
         {"Twin", "Ants", {1}}});
  write("1962", 62,
        {{"Garcia, Luis", "Antville 1961", {1}},  // in the other form
         {"Smith, Joe", "Antville 1961", {1}},
         {"Traded", "Cats", {1}}});
  write("1963", 63, {{"Twin", "Cats", {1}}});
  const Book book = Read();
  Strings told;
  for (const Career& career : book.careers.all) {
    std::string text = career.name + (career.apart.empty() ? "" : " of " + career.apart) + ":";
    for (const CareerLine& line : career.lines) {
      text += " " + book.chapters[line.chapter].name + " " + book.LineOf(line).team + ",";
    }
    text += std::array{" id", " name", " both"}.at(std::size_t(career.by));
    told.push_back(text + " " + std::to_string(int(career.batting->hits)));
  }
  EXPECT_EQ(told, (Strings{"Garcia, Luis: 1961 Antville 1961, 1961 Beetown 1961, 1962 Antville "
                           "1961, id 4",
                           "Luis Garcia (2): 1961 Beetown 1961, id 1", "Once: 1960 Ants, name 1",
                           "Smith, Joe: 1960 Ants, 1961 Antville 1961, 1962 Antville 1961, both 3",
                           "Traded: 1960 Ants, 1960 Bees, 1962 Cats, name 5",
                           "Twin of Ants: 1960 Ants, 1961 Ants, name 3",
                           "Twin of Bees: 1960 Bees, name 1", "Twin of Cats: 1963 Cats, name 1"}));
  EXPECT_NE(book.chapters[3].archiveFault, "");
}

// Who shares the first place of a season is named, ten at most; nobody else is.
TEST_F(BookTest, LeadersOfASeasonAreNamedOrCounted) {
  for (const int best : {1, 2}) {
    Season season{.name = best == 1 ? "1960" : "1961"};
    const std::string id = IdOf(59 + best, 0);
    season.games.push_back({id, {"Ants", "Bees"}, {9, 1}});
    for (int i = 0; i < 13; ++i) {
      season.batted.push_back(
          {std::string(1, char('A' + i)), "Ants", id, {0, 0, 0, i == 0 ? best : 1, 2}});
    }
    Write(season);
  }
  WriteBook(platform, {});
  const Strings lines = Lines("read_pages.py", Report("All seasons 2026-11-18"));
  std::string ten;
  for (char name = 'A'; name <= 'J'; ++name) ten += std::string(1, name) + "Ants";
  for (const std::string& line : {"leaders Home runs 1|1960|" + ten + "and 3 more with 1|1",
                                  std::string("leaders Home runs 1|1961|AAnts|2")}) {
    EXPECT_TRUE(std::ranges::find(lines, line) != lines.end()) << line;
  }
}

// A season of two games with two hard names.
Season Hard(const std::string& name, int year, const std::function<std::string(int, int)>& id) {
  return Of(name, year, {{kHard, "<Ants>", {1, 2}}, {"Bo", "<Ants>", {1}}}, id);
}

TEST_F(BookTest, WhatCannotBeReadIsLeftOutByName) {
  WriteBook(platform, {});
  EXPECT_NE(desk.told.at(0).find("No game is saved yet"), std::string::npos) << desk.told.at(0);
  EXPECT_EQ(Reports(), Strings{});
  Write(Hard("Q&A", 60, IdOf));
  Write(Hard("1961", 61, IdOf));
  Write({.name = "Bare"});
  std::ofstream(FileOf("Damaged")) << std::string(8192, 'x');
  std::ofstream(FileOf("Jet"), std::ios::binary)
      << std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4096, '\0');
  Write(Hard("Lacking", 62, IdOf));
  SQLite::Database(FileOf("Lacking").string(), SQLite::OPEN_READWRITE).exec("DROP TABLE Pitching");
  Write(Hard("Torn", 63, IdOf));
  std::filesystem::resize_file(FileOf("Torn"), 8192);
  Write(Hard("Locked", 64, IdOf));
  SQLite::Database locked(FileOf("Locked").string(), SQLite::OPEN_READWRITE);
  locked.exec("BEGIN EXCLUSIVE");
  desk.settings["labels/" + std::string(settings::kSeasonGroups) + " of 1961"] =
      GroupsText({{"East", {"<Ants>"}}, {"West", {"Others"}}});
  WriteBook(platform, {});
  const std::string& told = desk.told.back();
  for (const char* name :
       {"Damaged: ", "Jet: ", "Lacking: There is no table \"Pitching\"", "Torn: ", "Locked: "}) {
    EXPECT_NE(told.find(name), std::string::npos) << name << " in " << told;
  }
  EXPECT_EQ(told.find("Bare"), std::string::npos) << told;
  EXPECT_NE(told.find("2 seasons, 4 games"), std::string::npos) << told;
  EXPECT_EQ(desk.opened, Strings{Report("All seasons 2026-11-18/index.html")});
  const std::string page = ReadAll(Report("All seasons 2026-11-18/index.html"));
  for (const char* line : {"<li>Bare: no game", "<li>Damaged: left out", "Q&#38;A", "&#60;Ants",
                           "<small>West</small>"}) {
    EXPECT_NE(page.find(line), std::string::npos) << line;
  }
  EXPECT_EQ(page.find(folder.string()), std::string::npos) << "where the files lie is nobody's";
  const Strings lines = Lines("read_pages.py", Report("All seasons 2026-11-18"));
  EXPECT_EQ(lines.back(), "pages 7") << "five, and one for each player of both seasons";
}

TEST_F(BookTest, WholeOrNotAtAll) {
  Write(Hard("1960", 60, IdOf));
  Write(Hard("1961", 61, IdOf));
  int steps = 0;
  WriteBook(platform, [&steps](double /*share*/) { return ++steps > 0; });
  const Strings written{"All seasons 2026-11-18"};
  EXPECT_EQ(Reports(), written);
  for (int cancelled = 1; cancelled < steps; ++cancelled) {
    int step = 0;
    WriteBook(platform, [&](double /*share*/) { return ++step < cancelled; });
    EXPECT_EQ(Reports(), written) << cancelled;
  }
  EXPECT_EQ(desk.told.size(), 1U) << "who cancels needs no box";
  // What a killed program left goes, what the person has stays.
  std::filesystem::create_directories(Report("All seasons 2020-01-01 (being written)/players"));
  std::filesystem::create_directories(Report("Season 2020-01-01"));
  WriteBook(platform, {});
  EXPECT_EQ(Reports(),
            (Strings{"All seasons 2026-11-18", "All seasons 2026-11-18 (2)", "Season 2020-01-01"}));
  std::filesystem::remove_all(folder / "Game Rpts");
  std::ofstream(folder / "Game Rpts") << "in the way";
  WriteBook(platform, {});
  EXPECT_NE(desk.told.back().find("The book was not written"), std::string::npos);
}

}  // namespace
}  // namespace dtb::book
