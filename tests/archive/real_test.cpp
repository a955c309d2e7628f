// Both worlds in small: who is compared, at which moment, and who is used too much.
#include <algorithm>

#include "archive/day_figures.h"
#include "archive/season_test.h"
#include "real/real_pages.h"
#include "real/team_games.h"
#include "real/use.h"

namespace dtb::real {
namespace {

using archive::Account;
using archive::Forfeit;

archive::Player LuisGarcia(int number) {
  archive::Player player;
  player.id = "garcl00" + std::to_string(number);
  player.first = "Luis";
  player.last = "Garcia";
  player.number = number;
  return player;
}

// A club "Oak 1960" and its opponent "Bay 1960", with so many games a day apart from 1 June on, all
// won 5-3 by Oak, and one player each.
archive::Season SeasonOf(int games) {
  archive::Season season;
  for (const char* city : {"Oak", "Bay"}) {
    archive::Club club;
    club.year = 1960;
    club.city = city;
    club.name = std::string(city) + " 1960";
    club.players.push_back(LuisGarcia(1));
    season.clubs.push_back(club);
  }
  for (int i = 0; i < games; ++i) {
    archive::Game game;
    game.id = "OAK19600601" + std::to_string(i);
    game.day = archive::DayOf("1960-06-01") + i;
    game.account = Account::Plays;
    game.sides[0].club = 1;
    game.sides[0].runs = 3;
    game.sides[1].club = 0;
    game.sides[1].runs = 5;
    for (archive::Club& club : season.clubs) club.games.push_back(i);
    season.games.push_back(std::move(game));
  }
  return season;
}

// So many games between the two on the board, on the same days, all won 2-1 by the visitors.
SeasonFigures BoardOf(int games) {
  SeasonFigures board;
  for (const char* name : {"Bay 1960", "Oak 1960", "Strangers"}) board.teams.push_back({name});
  for (int i = 0; i < games; ++i) {
    board.games.push_back({.id = "G" + std::to_string(i),
                           .time = LocalTime{.year = 2026, .month = 11, .day = 1 + i % 28},
                           .day = LocalTime{.year = 1960, .month = 6, .day = 1 + i},
                           .sides = {SeasonSide{.team = 0, .runs = 2}, {.team = 1, .runs = 1}}});
    for (int team : {0, 1}) board.teams[team].games.push_back(i);
    ++board.teams[0].wins;
    ++board.teams[1].losses;
  }
  return board;
}

BothWorlds Worlds(SeasonFigures board, archive::Season season) {
  return PairWorlds(std::make_shared<const SeasonFigures>(std::move(board)),
                    std::make_shared<const archive::Season>(std::move(season)));
}

TEST(BothWorlds, AreAtTheSameMoment) {
  SeasonFigures board = BoardOf(4);
  // A game on a day of its own, against a team that is in no archive.
  board.games.push_back({.id = "X",
                         .time = LocalTime{.year = 2026, .month = 12},
                         .day = LocalTime{.year = 2026, .month = 12},
                         .sides = {SeasonSide{.team = 2, .runs = 1}, {.team = 1, .runs = 6}}});
  for (int team : {1, 2}) board.teams[team].games.push_back(4);
  ++board.teams[1].wins;
  const BothWorlds worlds = Worlds(board, SeasonOf(9));
  EXPECT_EQ(NotCompared(worlds), std::vector<std::string>{"Strangers"});
  struct Case {
    Moment moment;
    const char* table;
  };
  const auto day = [](int number) { return archive::DayOf("1960-06-0" + std::to_string(number)); };
  for (const Case& one :
       {Case{{Moment::By::Games, {}}, "Bay 1960: 4-0, 0-4, +4.0; Oak 1960: 1-4, 5-0, -4.0; "},
        {{Moment::By::Games, 2}, "Bay 1960: 2-0, 0-2, +2.0; Oak 1960: 0-2, 2-0, -2.0; "},
        {{Moment::By::Date, {}}, "Bay 1960: 4-0, 0-4, +4.0; Oak 1960: 0-4, 4-0, -4.0; "},
        {{Moment::By::Date, day(3)}, "Bay 1960: 3-0, 0-3, +3.0; Oak 1960: 0-3, 3-0, -3.0; "},
        {{Moment::By::Date, day(1) - 1}, ""}}) {
    const BothStandings both = StandingsOfBoth(worlds, one.moment);
    const auto table = BothTable(both);
    std::string text;
    for (std::size_t row = 1; row < table.size(); ++row) {
      text +=
          table[row][0] + ": " + table[row][1] + ", " + table[row][4] + ", " + table[row][8] + "; ";
    }
    EXPECT_EQ(text, one.table);
  }
  EXPECT_EQ(HeadlineOf(worlds, 1), "5 of 9: 1-4, really 5-0");
  EXPECT_EQ(HeadlineOf(worlds, 2), "1: 0-0-1, not in the archive");
  EXPECT_EQ(
      BothNote(worlds, StandingsOfBoth(worlds, {Moment::By::Date, {}}), {Moment::By::Date, {}}),
      "Both up to 4 Jun 1960. Not compared, since the archive has no club of the name: "
      "Strangers.");
  const auto games = GamesTable(GamesOfTeam(worlds, {{"G1", worlds.archive->games[1].id}}, 1));
  EXPECT_EQ(games.size(), 1 + 9 + 4U) << "the calendar, then the games that are none of it";
  EXPECT_EQ(games[1],
            (std::vector<std::string>{"1 Jun 1960", "1", "Bay 1960", "", "W 5-3", "", "1-0"}));
  EXPECT_EQ(games[2], (std::vector<std::string>{"2 Jun 1960", "2", "Bay 1960", "L 1-2", "W 5-3",
                                                "0-1", "2-0"}));
  EXPECT_EQ(games[10][4], "not in the archive");
}

TEST(BothWorlds, SayWhatTheArchiveDoesNotTell) {
  archive::Season season = SeasonOf(4);
  for (archive::Game& game : season.games) {
    game.account = Account::LineUps;
    for (archive::GameSide& side : game.sides) side.untold = archive::kAllUntold;
  }
  season.games[1].forfeit = Forfeit::ToVisitors;
  const BothWorlds worlds = Worlds(BoardOf(3), season);
  EXPECT_EQ(HeadlineOf(worlds, 1), "3 of 4: 0-3, really 0-1 and 2 games without a known result");
  EXPECT_EQ(UntoldText(UntoldOf(worlds, {}, SeasonLead::HomeRuns)), "The archive does not say.");
  season.games[1].forfeit = Forfeit::No;
  EXPECT_EQ(HeadlineOf(Worlds(BoardOf(3), season), 1),
            "3 of 4: 0-3, really unknown to the archive");
  // It may lack the figures of the batters or of the pitchers alone.
  for (const std::uint32_t untold :
       {archive::kAllUntold, archive::UntoldBit(&archive::Batting::walks),
        archive::UntoldBit(&archive::Pitching::outs)}) {
    for (archive::Game& game : season.games) {
      for (archive::GameSide& side : game.sides) side.untold = untold;
    }
    const BothWorlds lacking = Worlds(BoardOf(3), season);
    EXPECT_EQ(UseOfTeam(lacking, PlayersOfBoth(lacking, {}, {}), 1).note,
              "The archive lacks the use in 4 of 4 games, so nobody is marked.");
  }
}

struct UseCase {
  int games;  // replayed, of 20
  int replayed;
  int toDate;
  int year;
  UseMark mark;
};

TEST(Use, IsMarkedWhereItGoesBeyondTheRealOne) {
  for (const auto& [games, replayed, toDate, year, mark] : {UseCase{10, 41, 20, 40, UseMark::Over},
                                                            {20, 40, 40, 40, UseMark::Within},
                                                            {10, 30, 20, 40, UseMark::AbovePace},
                                                            // So he really was used by then.
                                                            {10, 30, 30, 40, UseMark::Within},
                                                            // One full game more says nothing.
                                                            {10, 26, 20, 40, UseMark::Within},
                                                            {1, 5, 4, 20, UseMark::Within},
                                                            {1, 1, 0, 0, UseMark::Over}}) {
    archive::Season season = SeasonOf(20);
    archive::Player& player = season.clubs[0].players[0];
    player.batting.atBats = year;
    player.days = {1};
    archive::PackDay(season.games[0].sides[1].figures, 0, {}, {.atBats = toDate}, {}, {});
    SeasonFigures board = BoardOf(games);
    board.players.push_back({"Luis Garcia", 1, BattingTotals{.atBats = double(replayed)}});
    const BothWorlds worlds = Worlds(board, season);
    const TeamUse use = UseOfTeam(worlds, PlayersOfBoth(worlds, {}, {}), 1);
    ASSERT_EQ(use.batters.size(), 1U);
    EXPECT_EQ(use.batters[0].mark(), mark) << replayed << " of " << year;
    EXPECT_EQ(use.batters[0].uses[0].toDate, toDate);
    EXPECT_EQ(UseMarks(worlds, {}).WordOf("Oak 1960", "Luis Garcia (2)"), MarkWord(mark));
  }
}

TEST(RealPages, TellBothWorlds) {
  archive::Season season = SeasonOf(9);
  archive::Player& player = season.clubs[0].players[0];
  player.batting.atBats = 3;
  player.days = {1};
  archive::PackDay(season.games[0].sides[1].figures, 0, {}, {.atBats = 2}, {}, {});
  SeasonFigures board = BoardOf(4);
  board.players.push_back({"Luis Garcia", 1, BattingTotals{.atBats = 5, .homeRuns = 4}});
  const ArchiveIds ids{{"G1", season.games[1].id}};
  const auto pages = RealPages(Worlds(board, season), {}, ids);
  ASSERT_EQ(pages.size(), 3U);
  const auto page = [&](const char* title) {
    const auto found = std::ranges::find(pages, title, &SeasonPage::title);
    return found == pages.end() ? "no such page" : found->body;
  };
  for (const auto& [title, text] :
       {std::pair{"Real and replayed", ">Oak 1960</a></td><td>0-4</td>"},
        {"Real and replayed", "Both up to 4 Jun 1960."},
        {"Real and replayed", "<td>Luis Garcia</td><td>Oak 1960</td><td>4</td>"},
        {"Oak 1960, Real and replayed", "4 of 9: 0-4, really 4-0."},
        {"Oak 1960, Real and replayed", "<td>L 1-2</td><td>W 5-3</td><td>0-1</td><td>2-0</td>"},
        {"Oak 1960, Real and replayed", "<td>5 of 3, really 2</td><td>over</td>"},
        {"Bay 1960, Real and replayed", "4 of 9: 4-0, really 0-4."}}) {
    EXPECT_NE(page(title).find(text), std::string::npos) << text << "\n" << page(title);
  }
}

// The club's second Luis Garcia has the number 2 in its files.
TEST(Players, AreFoundByTheirNamesOnTheBoard) {
  for (const auto& [namesakes, name, id] : {std::tuple{1, "Luis Garcia", "garcl001"},
                                            {1, "Luis Garcia (2)", "garcl001"},
                                            {1, "Garcia, Luis (3)", "garcl001"},
                                            {2, "Luis Garcia", "garcl001"},
                                            {2, "Luis Garcia (2)", "garcl002"},
                                            {2, "Luis Garcia (3)", ""},
                                            {1, "Luis Garcias", ""},
                                            {1, "Luis Garcia (Jr)", ""}}) {
    archive::Season season = SeasonOf(1);
    if (namesakes == 2) season.clubs[0].players.push_back(LuisGarcia(2));
    SeasonFigures board = BoardOf(1);
    board.players.push_back({name, 1, BattingTotals{.atBats = 3}});
    const BothWorlds worlds = Worlds(board, season);
    for (const BothPlayer& player : PlayersOfBoth(worlds, {}, {})) {
      if (!player.batting) continue;
      const std::string found =
          player.inArchive == archive::kNobody ? "" : season.clubs[0].players[player.inArchive].id;
      EXPECT_EQ(found, id) << name;
    }
  }
}

TEST(DayFigures, AddUpToThoseOfTheSeason) {
  const archive::Season season = archive::ReadAll(*archive::PartArchive());
  for (int club = 0; club < static_cast<int>(season.clubs.size()); ++club) {
    const auto& players = season.clubs[club].players;
    std::vector<archive::Batting> batting(players.size());
    std::vector<archive::Pitching> pitching(players.size());
    for (const archive::Game& game : season.games) {
      for (const archive::GameSide& side : game.sides) {
        if (side.club != club) continue;
        archive::ForEachDay(side, [&](const archive::DayFigures& day) {
          archive::Add(batting[day.player], day.batting);
          archive::Add(pitching[day.player], day.pitching);
        });
      }
    }
    for (std::size_t player = 0; player < players.size(); ++player) {
      const auto counters = [](const archive::Batting& b, const archive::Pitching& p) {
        return std::vector{
            b.games,      b.atBats,       b.hits,          b.doubles,        b.triples,
            b.homeRuns,   b.walks,        b.strikeouts,    b.hitByPitch,     b.stolenBases,
            b.runs,       b.runsBattedIn, b.sacrificeHits, b.sacrificeFlies, b.intoDoublePlays,
            b.leftOnBase, p.runs,         p.games,         p.starts,         p.outs,
            p.hits,       p.homeRuns,     p.walks,         p.strikeouts,     p.earnedRuns,
            p.wins,       p.losses,       p.saves};
      };
      EXPECT_EQ(counters(batting[player], pitching[player]),
                counters(players[player].batting, players[player].pitching))
          << players[player].id;
    }
  }
}

}  // namespace
}  // namespace dtb::real
