// Games of several members, taken in from their databases.
#include "database/games_of_others.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <set>

#include "database/kept_record.h"
#include "database/play_rows.h"
#include "database/rows.h"
#include "database/saved_tables.h"
#include "platform/sqlite/sqlite_seasons.h"
#include "record/box_text.h"
#include "temporary_folder.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;

struct OthersTest : testing::Test {
  ~OthersTest() override { fs::remove_all(folder); }

  std::unique_ptr<SqliteDatabase> Make(const std::string& name) {
    seasons.MakeDatabaseFile(folder / name, [](Database&) {});
    return std::make_unique<SqliteDatabase>(folder / name);
  }

  // A game of two batters, with a play and a decision, unless it was typed by hand.
  static void Save(Database& into, const std::string& id, const std::string& visitors, int runs,
                   bool byHand = false) {
    const auto save = into.BeginSave(SavedTables());
    GameRecord game{.id = id, .date = "2020-08-07", .over = true};
    game.sides[0].team = visitors;
    game.sides[1].team = "Elks";
    for (SideRecord& side : game.sides) {
      side.batters = {{.name = side.team + " batter", .place = 1}};
      side.pitchers = {{.name = side.team + " pitcher"}};
      save->Append(table::kBatting, {{"Batter", side.batters[0].name},
                                     {"AB", std::to_string(3 + runs)},
                                     {"Team", side.team},
                                     {"GameID", id}});
      save->Append(
          table::kPitching,
          {{"Pitcher", side.pitchers[0].name}, {"IP", "9"}, {"Team", side.team}, {"GameID", id}});
      const bool away = &side == &game.sides[0];
      save->Append(table::kBoxScores, {{"Team", side.team},
                                       {"I1", away ? std::to_string(runs) : "0"},
                                       {"Runs", away ? std::to_string(runs) : "0"},
                                       {"Host", away ? "a_VIS" : "b_HOME"},
                                       {"GameID", id}});
    }
    if (!byHand) {
      game.plays = {{.outcome = Outcome::Homer,
                     .batter = visitors + " batter",
                     .pitcher = "Elks pitcher",
                     .basesKept = true,
                     .moves = {{.name = visitors + " batter",
                                .to = kHomePlate,
                                .pitcher = "Elks pitcher",
                                .battedIn = true,
                                .earned = true}},
                     .after = {}}};
      game.decisions = {{Side::Visitors, visitors + " pitcher", Decision::Win}};
      auto rows = PlayRowsOf(game);
      rows.push_back(GameRowOf(game, 7));
      EXPECT_EQ(save->AppendPlays(rows), "");
    }
    save->Commit();
  }

  // All that a season holds, whatever the GameIDs and the order of its games.
  static std::multiset<std::string> HoldingOf(Database& database) {
    std::multiset<std::string> contents;
    for (const GameIdentity& game : IdentitiesOf(database)) {
      GameRecord record = *ReadRecord(database, game.game.id, {game.game.visitors, game.game.home});
      SeasonToDate season;
      season.Add(record);
      contents.insert(game.ownId + BoxText(BoxScoreOf(record, season)));
    }
    for (const char* count : {"WinLoss WHERE Win = 1", "WinLoss WHERE Loss = 1", "Matchups",
                              "Plays", "Runs", "Decisions"}) {
      contents.insert(
          std::string(count) + ' ' +
          std::to_string(CountOf(database, {std::string("SELECT count(*) FROM ") + count})));
    }
    return contents;
  }

  fs::path folder = MakeTemporaryFolder("others");
  SqliteDatabase database{folder / kDatabaseFile};
  SqliteCopies copies{folder / kDatabaseFile};
  SqliteSeasons seasons{folder, database, copies, [](const fs::path&) {}};
};

// In whatever order, and however often, twelve members' files are taken in.
TEST_F(OthersTest, TheSeasonIsTheSameInAnyOrder) {
  std::vector<std::unique_ptr<SqliteDatabase>> members;
  std::mt19937 random(27);
  for (int member = 0; member < 12; ++member) {
    members.push_back(Make("member" + std::to_string(member) + ".mdb"));
    for (int game = 0; game < 4; ++game) {
      // Some saved in the same second, some by hand, and some that two members have.
      const int number = member % 3 == 0 ? game : 10 * member + game;
      Save(*members.back(), "08072011000" + std::to_string(game), "Team " + std::to_string(number),
           1 + number % 5, number % 4 == 1);
    }
  }
  std::optional<std::multiset<std::string>> expected;
  for (int turn = 0; turn < 4; ++turn) {
    const auto season = Make("season" + std::to_string(turn) + ".mdb");
    std::vector<int> order;
    for (int i = 0; i < 30; ++i) order.push_back(i < 12 ? i : static_cast<int>(random() % 12));
    std::ranges::shuffle(order, random);
    for (const int member : order) {
      SqliteDatabase& other = *members[static_cast<std::size_t>(member)];
      PutGames(other, GamesLacking(*season, other), *season);
      EXPECT_TRUE(GamesLacking(*season, other).empty());
    }
    const auto contents = HoldingOf(*season);
    EXPECT_EQ(CountOf(*season, {"SELECT count(DISTINCT GameID) FROM BoxScores"}), 4 + 8 * 4)
        << "each has a second of its own";
    if (!expected) expected = contents;
    EXPECT_EQ(contents, *expected);
  }
}

TEST_F(OthersTest, AGameThatStandsThereTwiceComesOnce) {
  const auto season = Make("season.mdb");
  const auto other = Make("other.mdb");
  for (const bool byHand : {true, false}) {
    const std::string id = byHand ? "08072011000" : "08082011000";
    for (const char* second : {"0", "1"}) Save(*other, id + second, "Owls", 2, byHand);
  }
  const auto games = GamesLacking(*season, *other);
  EXPECT_LE(games.size(), 2U);
  EXPECT_EQ(PutGames(*other, games, *season), std::ssize(games));
}

TEST_F(OthersTest, WhatIsNoDatabaseChangesNothing) {
  const auto season = Make("season.mdb");
  const auto other = Make("other.mdb");
  Save(*other, "080720110000", "Owls", 2);
  const auto games = GamesLacking(*season, *other);
  ASSERT_EQ(games.size(), 1U);
  EXPECT_EQ(GameLine(games[0]), "7 Aug 2020: Owls 2, Elks 0");
  // Its file is spoiled between the question and the answer.
  std::ofstream(folder / "other.mdb") << "nothing";
  EXPECT_THROW(PutGames(*other, games, *season), ProgramError);
  EXPECT_TRUE(ReadSavedGames(*season).empty());
  // What is given out is whole or not there.
  EXPECT_THROW(seasons.MakeDatabaseFile(folder / "out.mdb",
                                        [&](Database& made) { PutGames(*other, games, made); }),
               ProgramError);
  EXPECT_FALSE(fs::exists(folder / "out.mdb"));
  EXPECT_FALSE(fs::exists(folder / "out.mdb.new"));
}

}  // namespace
}  // namespace dtb
