// The tables of what comes of the plays: beside the five, and without them.
#include "base/checksum.h"
#include "browser/chosen_game.h"
#include "copies_test.h"
#include "database/archive_games.h"
#include "database/deletes.h"
#include "database/kept_record.h"
#include "database/play_rows.h"
#include "database/restore.h"
#include "database/rows.h"

namespace dtb {
namespace {

using namespace stat_column;

class PlaysTest : public CopiesTest {
 protected:
  PlaysTest() { withPlays = true; }
  [[nodiscard]] bool HasPlayTables() const {
    return Stored(
               "SELECT count(*) FROM sqlite_master WHERE name IN "
               "('Games', 'Plays', 'Runs', 'Decisions')") != Strings{"0"};
  }
};

TEST_F(PlaysTest, AGameGoesIntoAllNineTables) {
  Table table(ports, "Ants", "Bees");
  table.PlayThree();
  table.Put(Side::Visitors, 1, {{kBatter, "Al"}, {kPlayed, "1"}});
  table.Put(Side::Visitors, 2, {{kBatter, "Bo"}, {kPlayed, "1"}});
  for (const auto& [side, name] : {std::pair{Side::Visitors, "K"}, {Side::Home, "k"}}) {
    table.Put(side, 1, {{kPitcher, name}, {kInningsPitched, "1"}});
  }
  table.sheet.ChosenDecisions.Set("W V K\nL H k\nS  \n");
  table.state.ArchiveGame = "BEE202008070\nAnts\nBees";
  SaveGame(table.board, "Old Wooden Grounds");
  EXPECT_EQ(desk.told.back(), "Data successfully recorded");
  EXPECT_EQ(
      Stored("SELECT GameID, length(OwnID), GameDate, ArchiveGame, Park, VisitorsLineup, "
             "HomeLineup FROM Games"),
      Strings{"111826104413|16|2020-08-07|BEE202008070|Old Wooden Grounds|1\t\tAl\n2\t\tBo|-"});
  EXPECT_EQ(Stored("SELECT * FROM Plays"),
            (Strings{"1|1|a_VIS|0|Ants|Al|Bees|k|1B|1|B-1 Al|Al|-|-|111826104413",
                     "2|1|a_VIS|0|Ants|Bo|Bees|l|HR|1|1-H Al\nB-H Bo|-|-|-|111826104413",
                     "3|1|b_HOME|2|Bees|O'Neill|Ants|K|K|0|-|-|-|-|111826104413"}));
  EXPECT_EQ(Stored("SELECT * FROM Runs"), (Strings{"2|Al|Bo|k|1|0|1|Ants|Bees|111826104413",
                                                   "2|Bo|Bo|l|1|1|0|Ants|Bees|111826104413"}));
  EXPECT_EQ(Stored("SELECT * FROM Decisions"),
            (Strings{"K|W|Ants|111826104413", "k|L|Bees|111826104413"}));

  // A game typed by hand, of no archive, in another second: the same tables, another OwnID.
  withPlays = false;
  Save(50, "Ants", 1, "Bees", 0);
  EXPECT_EQ(PlayCounts(), "2 3 2 2 ");
  EXPECT_EQ(Stored("SELECT GameDate, ArchiveGame FROM Games WHERE GameID = '111826105013'"),
            Strings{"2026-11-18|-"});
  EXPECT_EQ(Stored("SELECT count(DISTINCT OwnID) FROM Games"), Strings{"2"});
}

TEST(MovesText, IsReadBackWhateverTheNamesAre) {
  Play play;
  for (int from = kAtBatPlace; from <= kFromBench; ++from) {
    for (const char* name : {"Varrow", "1-H Pell Hathersby", " ", "", "B-1", "Ñandú\t=x", "'\""}) {
      Move& move = play.moves.emplace_back();
      move = {.name = name, .from = from, .to = kFromBench - from, .pitcher = {}};
    }
  }
  EXPECT_EQ(MovesIn(MovesText(play)), play.moves);
  for (const char* other : {"1-H", "9-H Al", "1-Q Al", "1 H Al", "x", "1-H Al\n\n2-H Bo"}) {
    EXPECT_EQ(MovesIn(other), std::nullopt) << other;
  }
  for (int number = 0; number <= static_cast<int>(Outcome::PutOnBase); ++number) {
    const auto outcome = static_cast<Outcome>(number);
    EXPECT_EQ(OutcomeOfCode(OutcomeCode(outcome)), outcome) << "two outcomes of one code";
  }
  EXPECT_EQ(HexText(ChecksumOf("a")), "af63dc4c8601ec8c") << "as FNV-1a is told";
}

// What an older board made, and what somebody else keeps under such a name.
TEST_F(PlaysTest, FilesWithoutTheTablesOrWithOthers) {
  EXPECT_FALSE(HasPlayTables());
  EXPECT_EQ(database.WhatItLacks(), Strings{});
  EXPECT_EQ(CountOf(database, {"SELECT count(*) FROM Games, Plays, Runs, Decisions"}), 0);
  PurgeAll(ports, "");
  EXPECT_TRUE(desk.told.back().starts_with("Delete of all")) << desk.told.back();
  {
    const auto save = database.BeginSave(SavedTables());
    EXPECT_EQ(save->AppendPlays({{table::kGames, {{"GameID", "1"}}}}), "");
  }
  EXPECT_FALSE(HasPlayTables()) << "a save that was given up leaves none";
  Save(1, "Ants", 4, "Bees", 2);
  EXPECT_EQ(PlayCounts(), "1 3 2 0 ");

  struct Foreign {
    const char* made;
    const char* told;
  };
  for (const Foreign& foreign : std::vector<Foreign>{
           {"CREATE TABLE Games (Name TEXT, GameID)",
            "The table \"Games\" lacks the column \"OwnID\"."},
           {"CREATE VIEW Games AS SELECT 1 AS GameID", "The table \"Games\" lacks"},
           {"CREATE TABLE Decisions (Pitcher INTEGER, Decision, Team, GameID)",
            "made for numbers, where texts belong."},
           {"CREATE TABLE Q (a); CREATE INDEX Plays ON Q (a)", "has no place for them"},
           {"CREATE TABLE Games (GameID, OwnID UNIQUE ON CONFLICT REPLACE, GameDate CHECK (0), "
            "ArchiveGame, Park, VisitorsLineup, HomeLineup)",
            "refuses a row"}}) {
    std::filesystem::remove(file);
    Execute(ReadAll(DTB_SCHEMA) + foreign.made);
    desk.time.second += 1;
    Save(2, "Cats", 1, "Dogs", 0);
    EXPECT_EQ(Count("Matchups"), "1") << "the five have the game";
    EXPECT_NE(desk.told.back().find(foreign.told), std::string::npos) << desk.told.back();
    EXPECT_EQ(Stored("SELECT count(*) FROM sqlite_master WHERE name = 'Runs'"), Strings{"0"});
    EXPECT_EQ(CountOf(database, {"SELECT count(*) FROM Games"}), 0);
    EXPECT_EQ(ReadRecordsOfDay(database, "2026-11-18").back().side(Side::Home).team, "Dogs");
    OpenBrowser(browser);
    TakeOutChosen(browser, ChosenGame(state, 1));
    EXPECT_EQ(desk.told.back().substr(0, 20), "The game is deleted.") << foreign.made;
  }
  // Nobody's list of games goes with the purge.
  Execute("DROP TABLE Games; CREATE TABLE Games (Mine TEXT); INSERT INTO Games VALUES ('kept')");
  PurgeAll(ports, "");
  EXPECT_EQ(Counts(), "0 0 0 0 0 ");
  EXPECT_EQ(Count("Games"), "1");
}

TEST_F(PlaysTest, GoAndComeBackWithTheirGames) {
  Save(1, "Ants", 4, "Bees", 2);
  Save(2, "Cats", 5, "Dogs", 3);
  copies.MakeCopy("both.mdb");
  OpenBrowser(browser);
  TakeOutChosen(browser, ChosenGame(state, 1));
  EXPECT_EQ(PlayCounts(), "1 3 2 0 ");
  const auto asked = desk.told.at(desk.told.size() - 2);
  EXPECT_NE(asked.find("2 batters, 2 pitchers, 3 plays, 2 runs"), std::string::npos) << asked;
  EXPECT_EQ(Stored("SELECT DISTINCT GameID FROM Plays"), Strings{"111826100113"});
  CopiesState shown;
  CopiesDesk copiesDesk{shown, ports};
  ListCopies(copiesDesk);
  SelectCopy(copiesDesk, 1);
  EXPECT_NE(
      shown.lbl_Changes.value().find("games: 2 rows instead of 1; plays: 6 rows instead of 3"),
      std::string::npos)
      << shown.lbl_Changes.value();
  BringBackSelected(copiesDesk);
  EXPECT_EQ(PlayCounts(), "2 6 4 0 ");

  // The rows of a GameID that several games bear go by their teams; nothing tells whose row in
  // Games it is.
  for (const char* table : {"Batting", "Pitching", "BoxScores", "Games", "Plays", "Runs"}) {
    Execute(std::string("UPDATE ") + table + " SET GameID = '111826100113'");
  }
  OpenBrowser(browser);
  TakeOutChosen(browser, ChosenGame(state, 1));
  EXPECT_EQ(PlayCounts(), "2 3 2 0 ");
  EXPECT_EQ(Stored("SELECT DISTINCT Team FROM Plays").at(0),
            Stored("SELECT Team FROM BoxScores").at(0));
  PurgeAll(ports, "");
  EXPECT_EQ(PlayCounts(), "0 0 0 0 ");
}

TEST_F(PlaysTest, RecordsOfADay) {
  Save(1, "Ants", 4, "Bees", 2);
  withPlays = false;
  Save(2, "Cats", 5, "Dogs", 3);
  desk.time.day += 1;
  Save(3, "Emus", 1, "Ants", 0);
  const auto teams = [&](const std::string& day) {
    std::string text;
    for (const GameRecord& game : ReadRecordsOfDay(database, day)) {
      text += game.side(Side::Visitors).team + std::to_string(game.plays.size()) + " ";
    }
    return text;
  };
  EXPECT_EQ(teams("2026-11-18"), "Ants3 Cats0 ");
  Execute("UPDATE Games SET GameDate = '1960-10-05' WHERE GameID LIKE '1119%'");
  EXPECT_EQ(teams("1960-10-05") + teams("2026-11-19"), "Emus0 ");
  Execute("DELETE FROM Games");
  EXPECT_EQ(teams("2026-11-19"), "Emus0 ") << "the day of the GameID";
  // Plays of a later version, which this one does not know, are none rather than wrong ones.
  Execute("UPDATE Plays SET Outcome = 'BUNT' WHERE Number = 2");
  EXPECT_EQ(teams("2026-11-18"), "Ants0 Cats0 ");
  EXPECT_EQ(ReadRecord(database, "111826100113", {"Ants", "Bees"})->side(Side::Home).runs, 2);
  EXPECT_FALSE(ReadRecord(database, "111826100113", {"Bees", "Ants"}).has_value());
}

// A board of an older version takes a game out of the five tables alone, and notes what it plays in
// the settings.
TEST_F(PlaysTest, ArchiveGamesArePlayedWhileTheDatabaseHasThem) {
  Table table(ports, "Ants", "Bees");
  table.state.ArchiveGame = "BEE202008070\nAnts\nBees";
  SaveGame(table.board);
  EXPECT_TRUE(desk.settings.empty()) << "the settings need not know";
  Save(50, "Cats", 1, "Dogs", 0);
  desk.settings["labels/season_played"] = "DOG202008080=111826105013;DOG202008090=111826105113";
  using Set = std::unordered_set<std::string>;
  EXPECT_EQ(SavedArchiveGames(ports), (Set{"BEE202008070", "DOG202008080"}));
  Execute("DELETE FROM BoxScores WHERE Team IN ('Ants', 'Bees')");
  EXPECT_EQ(SavedArchiveGames(ports), Set{"DOG202008080"});
  Execute("DROP TABLE Games");
  EXPECT_EQ(SavedArchiveGames(ports), Set{"DOG202008080"});
  for (const auto& [id, day] : {std::pair{"OAK202008070", "2020-08-07"},
                                {"OAK20200807", ""},
                                {"OAK2020080x0", ""},
                                {"", ""}}) {
    EXPECT_EQ(DateOfArchiveGame(id), day) << id;
  }
}

}  // namespace
}  // namespace dtb
